#pragma once

#include "ApplicationRegistry.h"
#include "DiskRoot.h"

class FileSystem;

/// Knows every bundle in the places where programs are kept, with every bundle that one of these contains, and the
/// desktop entries in the data folders, whose ids have the form of bundle identifiers. On a disk that lies in a folder,
/// only data folders of that disk count. Safe to use from any thread.
class LinuxApplicationRegistry : public ApplicationRegistry
{
public:
    LinuxApplicationRegistry(const DiskRoot &diskRoot, const FileSystem &fileSystem);

    std::unique_ptr<ApplicationIndex> index() const override;

private:
    DiskRoot m_diskRoot;
    const FileSystem &m_fileSystem;
};
