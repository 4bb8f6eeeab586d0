#pragma once

#include "FileSystem.h"

/// How many bytes the item at `url` occupies on disk: a file or a link itself, a folder with what is below it.
/// Hidden items beneath a folder and the contents of packages beneath it add nothing; links are not followed.
/// What cannot be read counts as nothing. Blocks; safe to call from any thread.
qint64 allocatedSize(const FileSystem &fileSystem, const Url &url);

/// How many bytes one file or link with these values occupies by itself; 0 where the file system does not tell.
qint64 allocatedSize(const ResourceValues &values);
