#include "LinuxFileSystem.h"

#include "FileStatus.h"
#include "LinuxFolderListing.h"
#include "LinuxTreeWalk.h"
#include "ReachablePath.h"
#include "RegularFile.h"
#include "VolumeLabel.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/statvfs.h>
#include <system_error>

namespace {

enum class Links { followed, described };

std::optional<struct stat> statusAt(const QByteArray &hostPath, Links links)
{
    const ReachablePath path(hostPath);
    const int flags = links == Links::described ? AT_SYMLINK_NOFOLLOW : 0;
    struct stat status;
    const auto result = uninterrupted([&] { return fstatat(path.directory(), path.path(), &status, flags); });
    return result == 0 ? std::optional(status) : std::nullopt;
}

std::optional<struct stat> statusOf(const FileDescriptor &file)
{
    struct stat status;
    return fstat(file.number(), &status) == 0 ? std::optional(status) : std::nullopt;
}

} // namespace

LinuxFileSystem::LinuxFileSystem(DiskRoot root, const Url &home, std::stop_token stop)
    : m_root(std::move(root)), m_home(home.standardized()), m_stop(std::move(stop))
{
}

bool LinuxFileSystem::exists(const Url &url) const
{
    return statusAt(m_root.hostPath(url), Links::followed).has_value();
}

bool LinuxFileSystem::isGone(const Url &url) const
{
    const ReachablePath path(m_root.hostPath(url));
    struct stat status;
    const auto result = uninterrupted([&] { return fstatat(path.directory(), path.path(), &status, 0); });
    return result != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool LinuxFileSystem::isDirectory(const Url &url) const
{
    const auto status = statusAt(m_root.hostPath(url), Links::followed);
    return status && S_ISDIR(status->st_mode);
}

std::optional<Url> LinuxFileSystem::resolved(const Url &url) const
{
    std::error_code error;
    const auto path = std::filesystem::canonical(m_root.hostPath(url).toStdString(), error);
    return error ? std::nullopt : m_root.urlFor(QByteArray::fromStdString(path.native()));
}

bool LinuxFileSystem::isExecutable(const Url &url) const
{
    const ReachablePath path(m_root.hostPath(url));
    return faccessat(path.directory(), path.path(), X_OK, AT_EACCESS) == 0;
}

DirectoryEnumeration LinuxFileSystem::contentsOfDirectory(const Url &folder) const
{
    auto descriptor = openFolder(folder);
    if (!descriptor.isOpen())
        return {};
    return DirectoryEnumeration(std::make_unique<LinuxFolderListing>(std::move(descriptor), folder, m_stop));
}

void LinuxFileSystem::walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const
{
    const LinuxTreeWalk::FolderOpener open = [this](const Url &folder) { return openFolder(folder); };
    LinuxTreeWalk({open, visit, enters}, m_stop).run(folders);
}

FileDescriptor LinuxFileSystem::openFolder(const Url &folder) const
{
    return openPath(m_root.hostPath(folder), O_RDONLY | O_DIRECTORY);
}

std::optional<ResourceValues> LinuxFileSystem::resourceValues(const Url &url) const
{
    const auto status = statusAt(m_root.hostPath(url), Links::described);
    return status ? std::optional(resourceValuesOf(*status)) : std::nullopt;
}

std::optional<QByteArray> LinuxFileSystem::readFile(const Url &url, qint64 maximumSize) const
{
    const auto file = openRegularFile(m_root.hostPath(url));
    const auto status = statusOf(file);
    if (!status || status->st_size > maximumSize)
        return std::nullopt;
    // One byte more than may be there, for a file that is larger than it says.
    auto bytes = readPart(file, 0, maximumSize + 1);
    return bytes && bytes->size() <= maximumSize ? std::move(bytes) : std::nullopt;
}

std::optional<QByteArray> LinuxFileSystem::readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const
{
    return readPart(openRegularFile(m_root.hostPath(url)), offset, maximumLength);
}

std::optional<VolumeValues> LinuxFileSystem::volumeValues(const Url &url) const
{
    const auto place = openPath(m_root.hostPath(url), O_PATH);
    struct statvfs volume;
    if (!place.isOpen() || fstatvfs(place.number(), &volume) != 0)
        return std::nullopt;
    return VolumeValues{
        .name = volumeLabel(place.number()),
        .totalCapacity = bytesOf(volume.f_blocks, volume.f_frsize),
        .availableCapacityForImportantUsage = std::nullopt,
        .availableCapacity = bytesOf(volume.f_bavail, volume.f_frsize),
    };
}
