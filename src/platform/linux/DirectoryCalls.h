#pragma once

#include "FileDescriptor.h"
#include "FileStatus.h"

#include <QByteArray>

#include <cstddef>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/types.h>

/// Whether the system's error number says that there is nothing at a path; after any other, something may be there.
bool isAbsence(int error);

/// Whether `error` tells of what is wrong with the disk or not allowed there. Any other one would be a fault of the
/// walk, which must not pass for a folder without entries.
bool isFailureOfTheDisk(int error);

/// Which folder of which file system; no folder's where both are 0.
struct FolderIdentity
{
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const FolderIdentity &) const = default;
};

/// Which folder `folder` is; none when it is not open.
FolderIdentity identityOf(const FileDescriptor &folder);

/// What a program of this computer calls the open file, free of links; absent where it has no path.
std::optional<QByteArray> pathOf(const FileDescriptor &file);

/// The folder `name` in `parent`, with the access mode `access`; not open when it cannot be opened, and when it is a
/// link.
FileDescriptor openFolder(const FileDescriptor &parent, const char *name, int access);

/// The status of `name` in `folder`, a link being described as itself.
inline std::optional<struct stat> statusOf(const FileDescriptor &folder, const char *name)
{
    struct stat status;
    const auto result =
        uninterrupted([&] { return fstatat(folder.number(), name, &status, AT_SYMLINK_NOFOLLOW); });
    Q_ASSERT_X(result == 0 || isFailureOfTheDisk(errno), "fstatat", std::strerror(errno));
    return result == 0 ? std::optional(status) : std::nullopt;
}

/// Reads on in `folder` into `listing` and answers how many bytes are there now; 0 at the end, and when the folder
/// cannot be read (any more).
size_t readListing(const FileDescriptor &folder, char *listing, size_t size);

/// The name in an entry of a listing.
inline const char *nameOf(const dirent64 &listed)
{
    // Not by the member's own type: some file systems have names that are longer than it is.
    return reinterpret_cast<const char *>(&listed) + offsetof(dirent64, d_name);
}

/// What an entry of a listing is; absent where the file system does not say.
inline std::optional<FileType> typeOf(const dirent64 &listed)
{
    if (listed.d_type == DT_UNKNOWN)
        return std::nullopt;
    return fileTypeOf(DTTOIF(listed.d_type));
}
