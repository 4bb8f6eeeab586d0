#include "DesktopTrash.h"

#include "TrashedItemFinder.h"

#include <algorithm>
#include <fcntl.h>
#include <gio/gio.h>
#include <iterator>
#include <memory>
#include <stdio.h>
#include <unistd.h>

namespace {

struct Row
{
    int code;
    TrashFailure failure;
};

constexpr Row failures[] = {
    {G_IO_ERROR_NOT_FOUND, TrashFailure::itemIsMissing},
    {G_IO_ERROR_NOT_SUPPORTED, TrashFailure::noTrashOnDisk},
    {G_IO_ERROR_PERMISSION_DENIED, TrashFailure::noPermission},
    {G_IO_ERROR_READ_ONLY, TrashFailure::diskIsReadOnly},
    {G_IO_ERROR_NO_SPACE, TrashFailure::diskIsFull},
    {G_IO_ERROR_FILENAME_TOO_LONG, TrashFailure::nameIsTooLong},
    {G_IO_ERROR_BUSY, TrashFailure::itemIsInUse},
};

TrashFailure failureOf(const GError *error)
{
    const auto *row = std::ranges::find(failures, error->code, &Row::code);
    return error->domain == G_IO_ERROR && row != std::end(failures) ? row->failure : TrashFailure::other;
}

bool liesInside(const QByteArray &folder, const QByteArray &disk)
{
    return disk.isEmpty() || folder == disk || folder.startsWith(disk + '/');
}

// Gives up on an item that could never be put back: it goes back at once, and its useless record with it.
TrashMove putBack(const TrashedItem &item, const QByteArray &path)
{
    if (renameat2(AT_FDCWD, item.place.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE) != 0)
        return {std::nullopt, item.place};
    unlink(item.record.constData());
    return {TrashFailure::originIsNotRecorded, std::nullopt};
}

} // namespace

TrashMove moveToDesktopTrash(const QByteArray &path, const QByteArray &disk)
{
    const TrashedItemFinder finder(path);
    if (!finder.realFolder())
        return {TrashFailure::itemIsMissing, std::nullopt};
    if (!liesInside(*finder.realFolder(), disk))
        return {TrashFailure::itemIsOutsideOfDisk, std::nullopt};

    // A local file is moved without the desktop's virtual file systems, which would be loaded first.
    const std::unique_ptr<GFile, decltype(&g_object_unref)> file(
        g_vfs_get_file_for_path(g_vfs_get_local(), path.constData()), &g_object_unref);
    GError *rawError = nullptr;
    g_file_trash(file.get(), nullptr, &rawError);
    const std::unique_ptr<GError, decltype(&g_error_free)> error(rawError, &g_error_free);
    if (error)
        return {failureOf(error.get()), std::nullopt};
    // GIO moves an item even where it could not write the record, on a full disk or for a very long name.
    const auto item = finder.find();
    if (item && !item->isRecorded)
        return putBack(*item, path);
    return {std::nullopt, item ? std::optional(item->place) : std::nullopt};
}
