#include "RegularFile.h"

#include "ReachablePath.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileDescriptor openPath(const QByteArray &hostPath, int flags)
{
    const ReachablePath path(hostPath);
    return FileDescriptor(
        uninterrupted([&] { return openat(path.directory(), path.path(), flags | O_CLOEXEC | O_NOCTTY); }));
}

FileDescriptor openRegularFile(const QByteArray &hostPath)
{
    const ReachablePath path(hostPath);
    struct stat status;
    // Looked at before it is opened: opening a pipe or a device can do something. And once more afterwards: it may
    // have become one in between.
    if (uninterrupted([&] { return fstatat(path.directory(), path.path(), &status, 0); }) != 0
        || !S_ISREG(status.st_mode))
        return {};
    auto file = openPath(hostPath, O_RDONLY | O_NONBLOCK);
    return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) ? std::move(file) : FileDescriptor();
}

std::optional<QByteArray> readPart(const FileDescriptor &file, qint64 offset, qint64 maximumLength)
{
    constexpr qint64 step = 64 * 1024;
    if (!file.isOpen() || offset < 0)
        return std::nullopt;
    QByteArray bytes;
    while (bytes.size() < maximumLength) {
        const auto size = bytes.size();
        const auto room = std::min(step, maximumLength - size);
        bytes.resize(size + room);
        const auto count = uninterrupted(
            [&] { return ::pread(file.number(), bytes.data() + size, static_cast<size_t>(room), offset + size); });
        if (count < 0)
            return std::nullopt;
        bytes.resize(size + count);
        if (count == 0)
            break;
    }
    return bytes;
}
