#include "LinuxFileSystem.h"

#include "DirectoryCalls.h"
#include "FileStatus.h"
#include "LinuxFolderListing.h"
#include "LinuxTreeWalk.h"
#include "RegularFile.h"
#include "VolumeLabel.h"

#include <fcntl.h>
#include <sys/statvfs.h>

namespace {

using Links = DiskRoot::Links;

std::optional<struct stat> statusAt(const DiskRoot &disk, const Url &url, Links links)
{
    const auto answer = disk.status(url, links);
    const auto *status = std::get_if<struct stat>(&answer);
    return status ? std::optional(*status) : std::nullopt;
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
    return statusAt(m_root, url, Links::followed).has_value();
}

bool LinuxFileSystem::isGone(const Url &url) const
{
    const auto answer = m_root.status(url, Links::followed);
    const auto *error = std::get_if<int>(&answer);
    return error && isAbsence(*error);
}

bool LinuxFileSystem::isDirectory(const Url &url) const
{
    const auto status = statusAt(m_root, url, Links::followed);
    return status && S_ISDIR(status->st_mode);
}

std::optional<Url> LinuxFileSystem::resolved(const Url &url) const
{
    const auto path = m_root.resolvedHostPath(url);
    return path ? m_root.urlFor(*path) : std::nullopt;
}

bool LinuxFileSystem::isExecutable(const Url &url) const
{
    const auto file = m_root.open(url, O_PATH);
    return file.isOpen() && faccessat(file.number(), "", X_OK, AT_EACCESS | AT_EMPTY_PATH) == 0;
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
    return m_root.open(folder, O_RDONLY | O_DIRECTORY);
}

std::optional<ResourceValues> LinuxFileSystem::resourceValues(const Url &url) const
{
    const auto status = statusAt(m_root, url, Links::described);
    return status ? std::optional(resourceValuesOf(*status)) : std::nullopt;
}

std::optional<QByteArray> LinuxFileSystem::readFile(const Url &url, qint64 maximumSize) const
{
    const auto file = openRegularFile(m_root, url);
    const auto status = statusOf(file);
    if (!status || status->st_size > maximumSize)
        return std::nullopt;
    // One byte more than may be there, for a file that is larger than it says.
    auto bytes = readPart(file, 0, maximumSize + 1);
    return bytes && bytes->size() <= maximumSize ? std::move(bytes) : std::nullopt;
}

std::optional<QByteArray> LinuxFileSystem::readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const
{
    return readPart(openRegularFile(m_root, url), offset, maximumLength);
}

std::optional<VolumeValues> LinuxFileSystem::volumeValues(const Url &url) const
{
    auto place = m_root.open(url, O_PATH);
    // A home folder without the disk that it was on lies on a volume all the same.
    if (!place.isOpen() && url.path() == "/")
        place = m_root.open(m_home, O_PATH);
    struct statvfs volume;
    if (!place.isOpen() || fstatvfs(place.number(), &volume) != 0)
        return std::nullopt;
    return VolumeValues{
        .name = volumeLabel(place.number()),
        .totalCapacity = bytesOf(volume.f_blocks, volume.f_frsize),
        .availableCapacityForImportantUsage = std::nullopt,
        .availableCapacity = bytesOf(volume.f_bavail, volume.f_frsize),
        .isReadOnly = (volume.f_flag & ST_RDONLY) != 0,
    };
}
