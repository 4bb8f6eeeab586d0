// Debian 13's GLib has other names for the mount functions of Debian 12's and finds fault with the old ones.
#define GLIB_VERSION_MIN_REQUIRED GLIB_VERSION_2_74

#include "TrashDirectory.h"

#include <cerrno>
#include <filesystem>
#include <gio/gunixmounts.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray parentOf(const QByteArray &path)
{
    return QByteArray::fromStdString(std::filesystem::path(path.toStdString()).parent_path());
}

/// The device that `path` is on, or would be if it were made.
dev_t deviceOf(QByteArray path)
{
    struct stat status
    {
    };
    while (stat(path.constData(), &status) != 0 && path != "/")
        path = parentOf(path);
    return status.st_dev;
}

/// The topmost folder of the volume that holds `folder`.
QByteArray topDirectoryOf(QByteArray folder)
{
    const auto device = deviceOf(folder);
    while (folder != "/" && deviceOf(parentOf(folder)) == device)
        folder = parentOf(folder);
    return folder;
}

/// Whether desktops look for a Trash on the volume mounted at `topDirectory`. They do not on what the system mounts
/// for itself, such as folders in memory: nobody would find there what was moved.
bool isShownByDesktops(const QByteArray &topDirectory)
{
    const std::unique_ptr<GUnixMountEntry, decltype(&g_unix_mount_free)> mount(
        g_unix_mount_for(topDirectory.constData(), nullptr), &g_unix_mount_free);
    if (!mount)
        return false;
    const QByteArray options(g_unix_mount_get_options(mount.get()));
    if (options.contains("x-gvfs-trash"))
        return true;
    return !options.contains("x-gvfs-notrash") && !g_unix_mount_is_system_internal(mount.get());
}

/// Makes the folder, for the user alone, unless it is there. 0 or an error number.
int makeFolder(const QByteArray &path)
{
    return mkdir(path.constData(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno;
}

/// The same for one in a place where others could have put something of theirs, which is refused.
int makeOwnFolder(const QByteArray &path)
{
    struct stat status;
    if (const auto error = makeFolder(path); error != 0)
        return error;
    if (lstat(path.constData(), &status) != 0)
        return errno;
    return S_ISDIR(status.st_mode) && status.st_uid == geteuid() ? 0 : EPERM;
}

/// Whether the volume has a Trash that its administrator made for everybody.
bool isSharedTrash(const QByteArray &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX);
}

std::variant<TrashDirectory, TrashFailure> trashOfVolume(const QByteArray &topDirectory)
{
    if (!isShownByDesktops(topDirectory))
        return TrashFailure::noTrashOnDisk;
    const auto base = topDirectory.endsWith('/') ? topDirectory : topDirectory + '/';
    const auto user = QByteArray::number(geteuid());
    const auto shared = base + ".Trash";
    if (isSharedTrash(shared) && makeOwnFolder(shared + '/' + user) == 0)
        return TrashDirectory{shared + '/' + user, base};
    const auto own = base + ".Trash-" + user;
    switch (const auto error = makeOwnFolder(own)) {
    case 0:
        return TrashDirectory{own, base};
    case EACCES:
    case EPERM:
        return TrashFailure::noTrashOnDisk;
    default:
        return trashFailureOf(error);
    }
}

std::variant<TrashDirectory, TrashFailure> trashOfUser()
{
    const auto path = homeTrash();
    if (g_mkdir_with_parents(path.constData(), S_IRWXU) != 0)
        return trashFailureOf(errno);
    return TrashDirectory{path, {}};
}

} // namespace

std::variant<TrashDirectory, TrashFailure> trashDirectoryFor(const QByteArray &folder)
{
    const bool isAtHome = deviceOf(folder) == deviceOf(homeTrash());
    auto trash = isAtHome ? trashOfUser() : trashOfVolume(topDirectoryOf(folder));
    if (const auto *directory = std::get_if<TrashDirectory>(&trash)) {
        for (const auto *part : {"/files", "/info"}) {
            if (const auto error = makeFolder(directory->path + part); error != 0)
                return trashFailureOf(error);
        }
    }
    return trash;
}

QByteArray homeTrash()
{
    const auto dataHome = qgetenv("XDG_DATA_HOME");
    // A relative one counts as unset, says its specification.
    return (dataHome.startsWith('/') ? dataHome : g_get_home_dir() + QByteArray("/.local/share")) + "/Trash";
}
