#pragma once

#include "ApplicationRegistry.h"
#include "DiskRoot.h"

class BundleReader;
class FileSystem;

/// Knows the bundles in the application folders and in what lies up to two levels below these, what these bundles
/// contain of applications, extensions and services of their own, and the desktop entries in the data folders,
/// whose ids have the form of bundle identifiers. On a disk that lies in a folder, only data folders of that disk
/// count. Safe to use from any thread.
class LinuxApplicationRegistry : public ApplicationRegistry
{
public:
    LinuxApplicationRegistry(const DiskRoot &diskRoot, const FileSystem &fileSystem,
                             const BundleReader &bundleReader);

    std::unique_ptr<ApplicationIndex> index() const override;

private:
    DiskRoot m_diskRoot;
    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
};
