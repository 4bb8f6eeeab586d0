#include "RegularFile.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileDescriptor openRegularFile(const DiskRoot &disk, const Url &url)
{
    // Looked at before it is opened: opening a pipe or a device can do something. And once more afterwards: it may
    // have become one in between.
    const auto before = disk.status(url, DiskRoot::Links::followed);
    const auto *known = std::get_if<struct stat>(&before);
    if (!known || !S_ISREG(known->st_mode))
        return {};
    auto file = disk.open(url, O_RDONLY | O_NONBLOCK);
    struct stat status;
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
