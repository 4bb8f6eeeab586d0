#pragma once

#include "ApplicationRegistry.h"
#include "DiskRoot.h"

#include <stop_token>

class FileSystem;

/// Knows every bundle in the places where programs are kept, with every bundle that one of these contains, and the
/// desktop entries in the data folders, whose ids have the form of bundle identifiers. On a disk that lies in a folder,
/// only data folders of that disk count. Safe to use from any thread.
class LinuxApplicationRegistry : public ApplicationRegistry
{
public:
    /// An index in progress ends where it stands when `stop` is requested. `fileSystem` outlives the registry.
    LinuxApplicationRegistry(const DiskRoot &diskRoot, const FileSystem &fileSystem, std::stop_token stop = {});

    std::unique_ptr<ApplicationIndex> index() const override;

private:
    DiskRoot m_diskRoot;
    const FileSystem &m_fileSystem;
    const std::stop_token m_stop;
};
