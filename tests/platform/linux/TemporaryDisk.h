#pragma once

#include "DiskRoot.h"
#include "RemoveTree.h"

#include <QtGlobal>

#include <cstdlib>
#include <filesystem>
#include <fstream>

/// A disk in a folder of its own that goes with the object. Paths are those of the disk; the folders above an item
/// are made with it.
class TemporaryDisk
{
public:
    TemporaryDisk()
    {
        // Another user can look around on it.
        std::filesystem::permissions(host("/"), std::filesystem::perms(0755));
    }
    // Not by QTemporaryDir, which leaves names that are not UTF-8 behind.
    ~TemporaryDisk() { removeTree(host("/")); }
    Q_DISABLE_COPY_MOVE(TemporaryDisk)

    const DiskRoot &root() const { return m_root; }
    std::filesystem::path host(const QByteArray &path) const { return m_root.hostPath(Url(path)).toStdString(); }

    Url folder(const QByteArray &path) const
    {
        std::filesystem::create_directories(host(path));
        return Url(path);
    }
    Url file(const QByteArray &path, const QByteArray &content = {}) const
    {
        folder(Url(path).parent().path());
        std::ofstream(host(path), std::ios::binary) << content.toStdString();
        return Url(path);
    }
    Url link(const QByteArray &path, const QByteArray &target) const
    {
        folder(Url(path).parent().path());
        std::filesystem::create_symlink(target.toStdString(), host(path));
        return Url(path);
    }

private:
    /// In memory where that can be had: thousands of folders take half a minute on a disk.
    static QByteArray newFolder()
    {
        for (const auto &place : {std::filesystem::path("/dev/shm"), std::filesystem::temp_directory_path()}) {
            auto path = (place / "disk-XXXXXX").string();
            if (mkdtemp(path.data()))
                return QByteArray::fromStdString(path);
        }
        return {};
    }

    DiskRoot m_root{newFolder()};
};
