#pragma once

#include "FileSystem.h"

/// The current user's Library, in which applications keep what belongs to them.
inline Url libraryFolder(const FileSystem &fileSystem)
{
    return fileSystem.homeDirectory() / "Library";
}
