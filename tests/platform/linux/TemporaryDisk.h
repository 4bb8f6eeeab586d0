#pragma once

#include "DiskRoot.h"

#include <QtGlobal>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

/// A disk in a folder of its own that goes with the object. Paths are those of the disk; the folders above an item
/// are made with it.
class TemporaryDisk
{
public:
    /// Made inside of `place`; unless told in memory where that can be had, as thousands of folders take half a minute on
    /// a disk.
    explicit TemporaryDisk(const std::filesystem::path &place = access("/dev/shm", W_OK) == 0
                                                                    ? "/dev/shm"
                                                                    : std::filesystem::temp_directory_path())
        : m_root(newFolder(place))
    {
        // Another user can look around on it.
        std::filesystem::permissions(host("/"), std::filesystem::perms(0755));
    }
    /// Not by QTemporaryDir, which leaves names that are not UTF-8 behind, and what is in a locked folder.
    ~TemporaryDisk()
    {
        const auto folder = '\'' + host("/").string() + '\'';
        std::system(
            ("rm -rf " + folder + " 2>/dev/null || { chmod -R u+rwx " + folder + "; rm -rf " + folder + "; }")
                .c_str());
    }
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
    static QByteArray newFolder(const std::filesystem::path &place)
    {
        auto path = (place / "tarnvale-disk-XXXXXX").string();
        // Without a folder, it would be the computer's own disk that goes with the object.
        if (!mkdtemp(path.data()))
            qFatal("no disk can be made in %s", place.c_str());
        return QByteArray::fromStdString(path);
    }

    const DiskRoot m_root;
};
