#include "DiskRoot.h"

#include "DirectoryCalls.h"
#include "ReachablePath.h"

#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <linux/openat2.h>
#include <mutex>
#include <sys/syscall.h>
#include <system_error>
#include <utility>

namespace {

/// Opens `path` from `folder`; `resolve` says where its links may lead, in the kernel's words.
FileDescriptor openInside(const FileDescriptor &folder, const QByteArray &path, int flags, quint64 resolve)
{
    // A rename anywhere on the computer can make the kernel unsure of a "..", and it asks to be called again.
    constexpr int mostAttempts = 10'000;
    open_how how{};
    how.flags = static_cast<quint64>(flags);
    how.resolve = resolve;
    long number = -1;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        number = syscall(SYS_openat2, folder.number(), path.constData(), &how, sizeof how);
        if (number >= 0 || (errno != EAGAIN && errno != EINTR))
            break;
    }
    return FileDescriptor(static_cast<int>(number));
}

/// With what every file is opened. A file that is only looked at takes no more.
int withUsualFlags(int flags)
{
    return flags | O_CLOEXEC | (flags & O_PATH ? 0 : O_NOCTTY);
}

} // namespace

/// The disk's folder, kept open: what is mounted over it or taken from there later is not the disk.
class DiskRoot::Folder
{
public:
    explicit Folder(QByteArray path) : m_path(std::move(path)), m_atFirst(open()) { }

    const FileDescriptor &opened() const
    {
        if (m_atFirst.isOpen())
            return m_atFirst;
        std::call_once(m_isOpened, [this] { m_later = open(); });
        return m_later;
    }

private:
    FileDescriptor open() const
    {
        return FileDescriptor(
            uninterrupted([this] { return ::open(m_path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
    }

    const QByteArray m_path;
    const FileDescriptor m_atFirst;
    mutable std::once_flag m_isOpened;
    mutable FileDescriptor m_later;
};

DiskRoot::DiskRoot(QByteArray prefix, const Url &place)
    : m_prefix(std::move(prefix)), m_place(place.path() == "/" ? Url() : place)
{
    while (m_prefix.endsWith('/'))
        m_prefix.chop(1);
    if (!m_prefix.isEmpty())
        m_folder = std::make_shared<Folder>(m_prefix);
}

/// From the disk's folder on: empty for the folder itself, else with a separator in front. Absent where a location
/// cannot be one of the disk's.
std::optional<QByteArray> DiskRoot::pathInside(const Url &url) const
{
    const auto &path = url.path();
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    const auto resolved = path.contains("..") ? url.standardizedPath() : path;
    if (!resolved.startsWith(m_place.path()))
        return std::nullopt;
    const auto inside = resolved.sliced(m_place.path().size());
    if (!inside.isEmpty() && !inside.startsWith('/'))
        return std::nullopt;
    return inside == "/" ? QByteArray() : inside;
}

QByteArray DiskRoot::hostPath(const Url &url) const
{
    if (m_prefix.isEmpty())
        return url.path().startsWith('/') && !url.path().contains('\0') ? url.path() : QByteArray();
    const auto inside = pathInside(url);
    return inside ? m_prefix + *inside : QByteArray();
}

std::optional<Url> DiskRoot::urlFor(const QByteArray &hostPath) const
{
    // "PREFIX/../elsewhere" begins like the disk and is outside of it.
    const auto path = m_prefix.isEmpty() ? hostPath : Url(hostPath).standardizedPath();
    if (!hostPath.startsWith('/') || !path.startsWith(m_prefix))
        return std::nullopt;
    const auto inside = path.sliced(m_prefix.size());
    if (inside.isEmpty())
        return m_place.isEmpty() ? Url("/") : m_place;
    return inside.startsWith('/') ? std::optional(Url(m_place.path() + inside)) : std::nullopt;
}

FileDescriptor DiskRoot::open(const Url &url, int flags) const
{
    if (m_prefix.isEmpty()) {
        const ReachablePath path(hostPath(url));
        return FileDescriptor(
            uninterrupted([&] { return openat(path.directory(), path.path(), withUsualFlags(flags)); }));
    }
    auto rest = pathInside(url);
    if (!rest) {
        errno = ENOENT;
        return {};
    }
    const auto withoutSeparator = [](QByteArray path) {
        while (path.startsWith('/'))
            path.remove(0, 1);
        return path.isEmpty() ? QByteArray(".") : path;
    };
    // The kernel takes no path of 4,096 bytes, so the front of a longer one is opened first. What follows may not lead
    // out of that: its root is not the disk's.
    FileDescriptor front;
    while (rest->size() >= PATH_MAX) {
        const auto separator = rest->lastIndexOf('/', PATH_MAX - 2);
        if (separator <= 0)
            break;
        auto opened =
            openInside(front.isOpen() ? front : m_folder->opened(), withoutSeparator(rest->first(separator)),
                       O_PATH | O_DIRECTORY | O_CLOEXEC, front.isOpen() ? RESOLVE_BENEATH : RESOLVE_IN_ROOT);
        if (!opened.isOpen())
            return {};
        front = std::move(opened);
        rest->remove(0, separator);
    }
    return openInside(front.isOpen() ? front : m_folder->opened(), withoutSeparator(*rest), withUsualFlags(flags),
                      front.isOpen() ? RESOLVE_BENEATH : RESOLVE_IN_ROOT);
}

std::variant<struct stat, int> DiskRoot::status(const Url &url, Links links) const
{
    struct stat status;
    if (m_prefix.isEmpty()) {
        const ReachablePath path(hostPath(url));
        const int flags = links == Links::described ? AT_SYMLINK_NOFOLLOW : 0;
        if (uninterrupted([&] { return fstatat(path.directory(), path.path(), &status, flags); }) == 0)
            return status;
        return errno;
    }
    const auto file = open(url, O_PATH | (links == Links::described ? O_NOFOLLOW : 0));
    if (file.isOpen() && fstat(file.number(), &status) == 0)
        return status;
    return errno;
}

std::optional<QByteArray> DiskRoot::resolvedHostPath(const Url &url) const
{
    if (m_prefix.isEmpty()) {
        std::error_code error;
        const auto path = std::filesystem::canonical(hostPath(url).toStdString(), error);
        return error ? std::nullopt : std::optional(QByteArray::fromStdString(path.native()));
    }
    const auto file = open(url, O_PATH);
    return file.isOpen() ? pathOf(file) : std::nullopt;
}
