#pragma once

#include "FileSystem.h"

#include <sys/stat.h>

/// What kind of item the mode bits of a file's status stand for.
FileType fileTypeOf(mode_t mode);

/// `count` units of `unit` bytes; the largest number where it is more than that. A file system may claim anything.
qint64 bytesOf(quint64 count, quint64 unit);

/// What the program asks of an item, from its status.
ResourceValues resourceValuesOf(const struct stat &status);
