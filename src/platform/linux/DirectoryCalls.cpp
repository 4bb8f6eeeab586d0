#include "DirectoryCalls.h"

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <system_error>

bool isFailureOfTheDisk(int error)
{
    switch (error) {
    case EBADF:
    case EFAULT:
    case EINVAL:
    case EMFILE:
    case ENAMETOOLONG:
        return false;
    default:
        return true;
    }
}

bool isAbsence(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

FolderIdentity identityOf(const FileDescriptor &folder)
{
    struct stat status;
    if (fstat(folder.number(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

std::optional<QByteArray> pathOf(const FileDescriptor &file)
{
    std::error_code error;
    const auto path = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file.number()), error);
    return error ? std::nullopt : std::optional(QByteArray::fromStdString(path.native()));
}

FileDescriptor openFolder(const FileDescriptor &parent, const char *name, int access)
{
    FileDescriptor folder(uninterrupted(
        [&] { return openat(parent.number(), name, access | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
    // Too many open files are the caller's affair.
    Q_ASSERT_X(folder.isOpen() || errno == EMFILE || isFailureOfTheDisk(errno), "openat", std::strerror(errno));
    return folder;
}

size_t readListing(const FileDescriptor &folder, char *listing, size_t size)
{
    const auto length = uninterrupted([&] { return getdents64(folder.number(), listing, size); });
    Q_ASSERT_X(length >= 0 || isFailureOfTheDisk(errno), "getdents64", std::strerror(errno));
    return length > 0 ? static_cast<size_t>(length) : 0;
}
