#include "LinuxDirectoryWalk.h"

#include "BundleLayout.h"
#include "FileStatus.h"
#include "Packages.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <fcntl.h>

namespace {

using Identity = LinuxDirectoryWalk::Identity;

constexpr size_t mostOpenFolders = 32;
constexpr size_t listingSize = 32 * 1024;

const char *nameOf(const dirent64 &listed)
{
    // Not by the member's own type: some file systems have names that are longer than it is.
    return reinterpret_cast<const char *>(&listed) + offsetof(dirent64, d_name);
}

/// Absent where the file system does not say.
std::optional<FileType> typeOf(const dirent64 &listed)
{
    if (listed.d_type == DT_UNKNOWN)
        return std::nullopt;
    return fileTypeOf(DTTOIF(listed.d_type));
}

/// Whether `error` tells of what is wrong with the disk or not allowed there. Any other one would be a fault of the
/// walk, which must not pass for a folder without entries.
bool isFailureOfTheDisk(int error)
{
    switch (error) {
    case EBADF:
    case EFAULT:
    case EINVAL:
    case EMFILE:
    case ENAMETOOLONG:
    case ENOTDIR:
        return false;
    default:
        return true;
    }
}

/// Which folder `descriptor` is; none when it is not open.
Identity identityOf(const FileDescriptor &descriptor)
{
    struct stat status;
    if (fstat(descriptor.number(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

std::optional<struct stat> statusOf(const FileDescriptor &folder, const char *name)
{
    struct stat status;
    const auto result =
        uninterrupted([&] { return fstatat(folder.number(), name, &status, AT_SYMLINK_NOFOLLOW); });
    return result == 0 ? std::optional(status) : std::nullopt;
}

FileDescriptor openFolder(const FileDescriptor &parent, const char *name, int access)
{
    return FileDescriptor(uninterrupted(
        [&] { return openat(parent.number(), name, access | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
}

} // namespace

LinuxDirectoryWalk::LinuxDirectoryWalk(FileDescriptor folder, const Url &url, Depth depth, std::stop_token stop)
    : m_path(url.path() == "/" ? QByteArray() : url.path()), m_maximumDepth(depth), m_stop(std::move(stop))
{
    push(std::move(folder));
}

bool LinuxDirectoryWalk::next()
{
    if (std::exchange(m_entersCurrent, false))
        enterCurrent();
    while (m_depth > 0 && !m_stop.stop_requested()) {
        const auto *listed = nextListed();
        if (!listed)
            leave();
        else if (describe(*listed))
            return true;
    }
    return false;
}

Url LinuxDirectoryWalk::url() const
{
    // Made for every result: no step that looks at the array's capacity again.
    QByteArray path(m_path.size() + 1 + m_name.size(), Qt::Uninitialized);
    auto *const separator = std::ranges::copy(m_path, path.data()).out;
    *separator = '/';
    std::ranges::copy(m_name, separator + 1);
    return Url(std::move(path));
}

std::optional<ResourceValues> LinuxDirectoryWalk::resourceValues() const
{
    const auto status = statusOf(folder().descriptor, m_name.data());
    return status ? std::optional(resourceValuesOf(*status)) : std::nullopt;
}

/// The next entry of the folder being listed; null when there are no more.
const dirent64 *LinuxDirectoryWalk::nextListed()
{
    auto &listing = folder();
    if (listing.next == listing.end && !readListing(listing))
        return nullptr;
    const auto *listed = reinterpret_cast<const dirent64 *>(listing.listing.data() + listing.next);
    listing.next += listed->d_reclen;
    return listed;
}

/// Reads on in `folder`; false at its end and when it cannot be read (any more).
bool LinuxDirectoryWalk::readListing(Folder &folder)
{
    if (folder.isReadToItsEnd)
        return false;
    const auto size = uninterrupted(
        [&] { return getdents64(folder.descriptor.number(), folder.listing.data(), folder.listing.size()); });
    Q_ASSERT_X(size >= 0 || isFailureOfTheDisk(errno), "LinuxDirectoryWalk", std::strerror(errno));
    folder.next = 0;
    folder.end = size > 0 ? static_cast<size_t>(size) : 0;
    return size > 0;
}

/// Makes `listed` the element at which the walk stands; false when it is none.
bool LinuxDirectoryWalk::describe(const dirent64 &listed)
{
    const auto *name = nameOf(listed);
    if (*name == '.')
        return false;
    auto type = typeOf(listed);
    if (!type) {
        const auto status = statusOf(folder().descriptor, name);
        if (!status)
            return false;
        type = fileTypeOf(status->st_mode);
    }
    m_name = QByteArrayView(name, static_cast<qsizetype>(std::strlen(name)));
    m_type = *type;
    m_entersCurrent =
        m_type == FileType::directory && m_maximumDepth == Depth::descendants && !isPackageName(m_name);
    return true;
}

void LinuxDirectoryWalk::enterCurrent()
{
    makeRoom();
    auto descriptor = openFolder(folder().descriptor, m_name.data(), O_RDONLY);
    if (!descriptor.isOpen())
        return;
    m_path.append('/').append(m_name);
    push(std::move(descriptor));
}

void LinuxDirectoryWalk::push(FileDescriptor descriptor)
{
    if (m_depth == m_folders.size())
        m_folders.emplace_back();
    auto &pushed = m_folders[m_depth++];
    pushed.descriptor = std::move(descriptor);
    pushed.pathSize = m_path.size();
    pushed.next = pushed.end = 0;
    pushed.isReadToItsEnd = false;
    if (m_spareListings.empty()) {
        pushed.listing.resize(listingSize);
    } else {
        pushed.listing = std::move(m_spareListings.back());
        m_spareListings.pop_back();
    }
}

void LinuxDirectoryWalk::leave()
{
    auto left = std::move(folder().descriptor);
    if (folder().listing.size() == listingSize)
        m_spareListings.push_back(std::move(folder().listing));
    folder().listing = {};
    if (--m_depth == 0)
        return;
    m_path.truncate(folder().pathSize);
    const auto index = m_depth - 1;
    if (index > 0 && index < m_firstOpen) {
        m_firstOpen = index;
        if (!reopen(index, left))
            folder().next = folder().end;
    }
}

/// Closes a folder where one more would be too many: the one that is needed again last, but for the enumerated
/// one, from which everything can be found again.
void LinuxDirectoryWalk::makeRoom()
{
    if (m_depth - m_firstOpen + 2 <= mostOpenFolders)
        return;
    auto &closed = m_folders[m_firstOpen++];
    closed.identity = identityOf(closed.descriptor);
    // Its listing is read to the end: what a position in it means to another descriptor is the file system's
    // affair.
    std::vector<char> rest(closed.listing.data() + closed.next, closed.listing.data() + closed.end);
    while (readListing(closed))
        rest.insert(rest.end(), closed.listing.data(), closed.listing.data() + closed.end);
    closed.isReadToItsEnd = true;
    std::swap(closed.listing, rest);
    // What is left of a folder that is closed for the second time is no room for another folder's listing.
    if (rest.size() == listingSize)
        m_spareListings.push_back(std::move(rest));
    closed.next = 0;
    closed.end = closed.listing.size();
    closed.descriptor = {};
}

/// Opens the closed folder at `index`, which held `child`, again; false when it cannot be found any more.
bool LinuxDirectoryWalk::reopen(size_t index, const FileDescriptor &child)
{
    auto &closed = m_folders[index];
    auto descriptor = openFolder(child, "..", O_PATH);
    // Whoever moved `child` elsewhere meanwhile must not lead the walk there.
    if (identityOf(descriptor) != closed.identity)
        descriptor = openedFromTop(index);
    if (identityOf(descriptor) != closed.identity)
        return false;
    closed.descriptor = std::move(descriptor);
    return true;
}

/// What the names now lead to that led to the folder at `index`; not open when they lead nowhere.
FileDescriptor LinuxDirectoryWalk::openedFromTop(size_t index) const
{
    FileDescriptor descriptor;
    for (size_t i = 1; i <= index; ++i) {
        const auto start = m_folders[i - 1].pathSize + 1;
        const auto name = m_path.mid(start, m_folders[i].pathSize - start);
        descriptor = openFolder(i == 1 ? m_folders.front().descriptor : descriptor, name.constData(), O_PATH);
        if (!descriptor.isOpen())
            return {};
    }
    return descriptor;
}
