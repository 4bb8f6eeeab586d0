#include "DesktopTrash.h"

#include "DirectoryCalls.h"
#include "FileDescriptor.h"
#include "TrashDirectory.h"

#include <QDateTime>

#include <climits>
#include <fcntl.h>
#include <stdio.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// An item whose folder is open.
struct Item
{
    FileDescriptor folder;
    /// The folder's path on this computer, free of links.
    QByteArray folderPath;
    QByteArray name;

    QByteArray path() const { return (folderPath.endsWith('/') ? folderPath : folderPath + '/') + name; }
};

/// Why it cannot be seen that `name` is in `folder`; absent when it can.
std::optional<TrashFailure> lookAt(int folder, const QByteArray &name)
{
    struct stat status;
    if (fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return std::nullopt;
    return isAbsence(errno) ? TrashFailure::itemIsMissing : TrashFailure::itemIsOutOfSight;
}

std::variant<Item, TrashFailure> itemAt(const DiskRoot &disk, const Url &url)
{
    if (url.path() == "/")
        return TrashFailure::itemIsOutsideOfDisk;
    auto folder = disk.open(url.parent(), O_PATH | O_DIRECTORY);
    if (!folder.isOpen())
        return isAbsence(errno) ? TrashFailure::itemIsMissing : TrashFailure::itemIsOutOfSight;
    const auto name = url.lastPathComponent();
    if (const auto failure = lookAt(folder.number(), name))
        return *failure;
    const auto folderPath = pathOf(folder);
    if (!folderPath)
        return TrashFailure::itemIsOutOfSight;
    if (!disk.urlFor(*folderPath))
        return TrashFailure::itemIsOutsideOfDisk;
    return Item{std::move(folder), *folderPath, name};
}

/// Whether the item, or the folder that it would have to be taken out of, is not the user's.
bool isOfAnotherUser(const Item &item)
{
    const auto isForeign = [](const struct stat &status) { return geteuid() != 0 && status.st_uid != geteuid(); };
    struct stat folder;
    struct stat status;
    return fstat(item.folder.number(), &folder) == 0
           && fstatat(item.folder.number(), item.name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
           && (isForeign(folder) || isForeign(status));
}

/// Why the item was not moved, as the system's error number has it.
TrashFailure failureOf(int error, const Item &item)
{
    if (const auto failure = lookAt(item.folder.number(), item.name))
        return *failure;
    const auto failure = trashFailureOf(error);
    return failure == TrashFailure::noPermission && isOfAnotherUser(item) ? TrashFailure::itemIsOfAnotherUser
                                                                          : failure;
}

/// Why nothing can be taken out of the item's folder; absent when something can. Asked first: of a disk that cannot be
/// changed it is not to be said that it has no Trash.
std::optional<TrashFailure> whyFolderIsFixed(const Item &item)
{
    if (faccessat(item.folder.number(), ".", W_OK | X_OK, AT_EACCESS) == 0)
        return std::nullopt;
    return failureOf(errno, item);
}

/// Which file is `name` in `folder`; absent where none can be seen.
std::optional<std::pair<dev_t, ino_t>> identityAt(int folder, const QByteArray &name)
{
    struct stat status;
    return fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
               ? std::optional(std::pair(status.st_dev, status.st_ino))
               : std::nullopt;
}

/// What the Trash notes of an item that came from `origin`.
QByteArray recordOf(const QByteArray &origin)
{
    return "[Trash Info]\nPath=" + origin.toPercentEncoding("/")
           + "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

constexpr auto recordExtension = ".trashinfo";
/// Of what a folder takes as a name, its record's extension has to fit in as well.
constexpr qsizetype longestName = NAME_MAX - qsizetype(std::char_traits<char>::length(recordExtension));

/// The name for the `number`th item called `name`. The number stands before the extension, so that it stays what it is,
/// and a name that leaves no room is cut there, between two characters: the item's record has it whole.
QByteArray numbered(const QByteArray &name, int number)
{
    const auto dot = name.lastIndexOf('.');
    const auto hasExtension = dot > 0 && name.size() - dot <= longestName / 2;
    const auto end = (number == 1 ? QByteArray() : '.' + QByteArray::number(number))
                     + (hasExtension ? name.mid(dot) : QByteArray());
    auto stem = hasExtension ? name.first(dot) : name;
    if (auto room = longestName - end.size(); stem.size() > room) {
        const auto continuesCharacter = [&] { return (stem[room] & 0xC0) == 0x80; };
        while (room > 1 && continuesCharacter())
            --room;
        stem.truncate(room);
    }
    return stem + end;
}

/// Makes a new file of these bytes and waits until they are on the disk: after a power cut, an item in the Trash
/// must not have an empty record. 0 or an error number; a failure leaves nothing behind.
int writeNewFile(const QByteArray &path, const QByteArray &content)
{
    const FileDescriptor file(open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        return errno;
    const bool isOnDisk =
        uninterrupted([&] {
            // What is written only in part has met the end of the disk, and is no error to the system.
            errno = ENOSPC;
            return write(file.number(), content.constData(), static_cast<size_t>(content.size()));
        }) == content.size()
        && fdatasync(file.number()) == 0;
    const int error = isOnDisk ? 0 : errno;
    if (!isOnDisk)
        unlink(path.constData());
    return error;
}

/// 0 or an error number; EEXIST where something is at `to`.
int renameWithoutReplacing(const Item &item, const QByteArray &to)
{
    const auto folder = item.folder.number();
    const auto *name = item.name.constData();
    if (renameat2(folder, name, AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL)
        return errno;
    // A file system that cannot promise it, as many across a network: then it is looked at just before.
    if (lookAt(AT_FDCWD, to) != TrashFailure::itemIsMissing)
        return EEXIST;
    return renameat(folder, name, AT_FDCWD, to.constData()) == 0 ? 0 : errno;
}

TrashMove moveInto(const TrashDirectory &trash, const Item &item, const QByteArray &origin)
{
    const auto record = recordOf(origin);
    const auto identity = identityAt(item.folder.number(), item.name);
    // The record is made first and takes the name, as with every desktop. Where something lies under it without a
    // record, another name is tried.
    for (int number = 1;; ++number) {
        const auto name = numbered(item.name, number);
        const auto recordPath = trash.path + "/info/" + name + recordExtension;
        auto error = writeNewFile(recordPath, record);
        if (error == EEXIST)
            continue;
        if (error != 0)
            return {trashFailureOf(error), {}};
        const auto place = trash.path + "/files/" + name;
        error = renameWithoutReplacing(item, place);
        // Across a network an answer can get lost, and the move is then made and said to have failed.
        const auto wasMoved = [&] {
            return identity && lookAt(item.folder.number(), item.name) == TrashFailure::itemIsMissing
                   && identityAt(AT_FDCWD, place) == identity;
        };
        if (error == 0 || wasMoved())
            return {std::nullopt, place};
        unlink(recordPath.constData());
        if (error != EEXIST)
            return {failureOf(error, item), {}};
    }
}

} // namespace

TrashMove moveToDesktopTrash(const DiskRoot &disk, const Url &url)
{
    const auto found = itemAt(disk, url);
    if (const auto *failure = std::get_if<TrashFailure>(&found))
        return {*failure, {}};
    const auto &item = std::get<Item>(found);
    if (const auto failure = whyFolderIsFixed(item))
        return {failure, {}};

    const auto trash = trashDirectoryFor(item.folderPath);
    if (const auto *failure = std::get_if<TrashFailure>(&trash))
        return {*failure, {}};
    const auto &directory = std::get<TrashDirectory>(trash);
    const auto &top = directory.topDirectory;
    // The way that the item is known by, unless its links would lead elsewhere on this computer.
    const auto origin = disk.prefix().isEmpty() ? url.path() : item.path();
    return moveInto(directory, item, top.isEmpty() ? origin : item.path().mid(top.size()));
}
