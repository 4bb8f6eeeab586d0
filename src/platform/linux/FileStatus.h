#pragma once

#include "FileSystem.h"

#include <QtNumeric>

#include <limits>
#include <sys/stat.h>

// A walk asks these of every file: the compiler sees them where they are called.

/// What kind of item the mode bits of a file's status stand for.
inline FileType fileTypeOf(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return FileType::regular;
    case S_IFDIR:
        return FileType::directory;
    case S_IFLNK:
        return FileType::symbolicLink;
    default:
        return FileType::other;
    }
}

/// `count` units of `unit` bytes; the largest number where it is more than that. A file system may claim anything.
inline qint64 bytesOf(quint64 count, quint64 unit)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    quint64 bytes = 0;
    if (qMulOverflow(count, unit, &bytes) || bytes > static_cast<quint64>(most))
        return most;
    return static_cast<qint64>(bytes);
}

/// Nanoseconds since 1970; absent for a year that no clock can mean.
inline std::optional<qint64> nanosecondsOf(const struct timespec &time)
{
    qint64 nanoseconds = 0;
    if (qMulOverflow(qint64{time.tv_sec}, qint64{1'000'000'000}, &nanoseconds)
        || qAddOverflow(nanoseconds, qint64{time.tv_nsec}, &nanoseconds))
        return std::nullopt;
    return nanoseconds;
}

/// What the program asks of an item, from its status.
inline ResourceValues resourceValuesOf(const struct stat &status)
{
    // The unit of `st_blocks`, whatever the file system's own blocks are.
    constexpr quint64 bytesPerBlock = 512;
    const auto blocks = status.st_blocks > 0 ? static_cast<quint64>(status.st_blocks) : 0;
    const auto size = bytesOf(blocks, bytesPerBlock);
    return {fileTypeOf(status.st_mode), size, size, nanosecondsOf(status.st_mtim)};
}
