#include "DesktopTrash.h"

#include "FileDescriptor.h"
#include "TrashDirectory.h"

#include <QDateTime>

#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <stdio.h>
#include <string>
#include <sys/stat.h>
#include <utility>

namespace {

struct Free
{
    void operator()(char *text) const { std::free(text); }
};

/// An item whose folder's path is free of links.
struct Item
{
    QByteArray folder;
    QByteArray name;

    QByteArray path() const { return (folder.endsWith('/') ? folder : folder + '/') + name; }
};

std::optional<Item> itemAt(const QByteArray &path)
{
    const auto separator = path.lastIndexOf('/') + 1;
    const std::unique_ptr<char, Free> folder(realpath(path.first(separator).constData(), nullptr));
    return folder ? std::optional(Item{folder.get(), path.mid(separator)}) : std::nullopt;
}

bool liesInside(const QByteArray &folder, const QByteArray &disk)
{
    return disk.isEmpty() || folder == disk || folder.startsWith(disk + '/');
}

/// Why it cannot be seen that something is at `path`; absent when it can.
std::optional<TrashFailure> lookAt(const QByteArray &path)
{
    struct stat status;
    if (lstat(path.constData(), &status) == 0)
        return std::nullopt;
    return errno == ENOENT || errno == ENOTDIR ? TrashFailure::itemIsMissing : TrashFailure::itemIsOutOfSight;
}

/// Which file is at `path`; absent where none can be seen.
std::optional<std::pair<dev_t, ino_t>> identityAt(const QByteArray &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 ? std::optional(std::pair(status.st_dev, status.st_ino))
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
    const auto written = uninterrupted(
        [&] { return write(file.number(), content.constData(), static_cast<size_t>(content.size())); });
    // What is written only in part has met the end of the disk.
    auto error = written < 0 ? errno : written < content.size() ? ENOSPC : 0;
    if (error == 0 && fdatasync(file.number()) != 0)
        error = errno;
    if (error != 0)
        unlink(path.constData());
    return error;
}

/// 0 or an error number; EEXIST where something is at `to`.
int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL)
        return errno;
    // A file system that cannot promise it, as many across a network: then it is looked at just before.
    if (lookAt(to) != TrashFailure::itemIsMissing)
        return EEXIST;
    return rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

TrashMove moveInto(const TrashDirectory &trash, const Item &item, const QByteArray &origin)
{
    const auto record = recordOf(origin);
    const auto identity = identityAt(item.path());
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
        error = renameWithoutReplacing(item.path(), place);
        // Across a network an answer can get lost, and the move is then made and said to have failed.
        const auto wasMoved = [&] {
            return identity && lookAt(item.path()) == TrashFailure::itemIsMissing && identityAt(place) == identity;
        };
        if (error == 0 || wasMoved())
            return {std::nullopt, place};
        unlink(recordPath.constData());
        if (error != EEXIST)
            return {lookAt(item.path()).value_or(trashFailureOf(error)), {}};
    }
}

} // namespace

TrashMove moveToDesktopTrash(const QByteArray &path, const QByteArray &disk)
{
    if (const auto failure = lookAt(path))
        return {failure, {}};
    const auto item = itemAt(path);
    if (!item)
        return {TrashFailure::itemIsOutOfSight, {}};
    if (!liesInside(item->folder, disk))
        return {TrashFailure::itemIsOutsideOfDisk, {}};

    const auto trash = trashDirectoryFor(item->folder);
    if (const auto *failure = std::get_if<TrashFailure>(&trash))
        return {*failure, {}};
    const auto &directory = std::get<TrashDirectory>(trash);
    const auto &top = directory.topDirectory;
    return moveInto(directory, *item, top.isEmpty() ? path : item->path().mid(top.size()));
}
