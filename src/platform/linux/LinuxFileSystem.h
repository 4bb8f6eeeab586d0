#pragma once

#include "DiskRoot.h"
#include "FileDescriptor.h"
#include "FileSystem.h"

#include <stop_token>

/// Files and folders by the kernel's own calls.
class LinuxFileSystem final : public FileSystem
{
public:
    /// `home` is a location on the disk of `root`. When `stop` is requested, every enumeration and walk ends where it
    /// stands.
    LinuxFileSystem(DiskRoot root, const Url &home, std::stop_token stop);

    Url homeDirectory() const override { return m_home; }
    bool exists(const Url &url) const override;
    bool isGone(const Url &url) const override;
    bool isDirectory(const Url &url) const override;
    std::optional<Url> resolved(const Url &url) const override;
    bool isExecutable(const Url &url) const override;
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override;
    using FileSystem::walk;
    void walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const override;
    std::optional<ResourceValues> resourceValues(const Url &url) const override;
    std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const override;
    std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const override;
    std::optional<VolumeValues> volumeValues(const Url &url) const override;

private:
    FileDescriptor openFolder(const Url &folder) const;

    const DiskRoot m_root;
    const Url m_home;
    const std::stop_token m_stop;
};
