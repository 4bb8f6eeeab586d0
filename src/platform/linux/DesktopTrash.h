#pragma once

#include "TrashFailure.h"

#include <QByteArray>

#include <optional>

/// What came of moving one item to the desktop's Trash.
struct TrashMove
{
    /// Absent when the item was moved.
    std::optional<TrashFailure> failure;
    /// Where on this computer it is now, as the Trash itself records it; absent when it has no such record.
    std::optional<QByteArray> place;
};

/// Moves what is at `path` of this computer, a link as itself, to the desktop's Trash. `path` is absolute and
/// standardised. Nothing is moved when, links resolved, it does not lie inside of `disk`; empty is everywhere.
/// Blocks; any thread.
TrashMove moveToDesktopTrash(const QByteArray &path, const QByteArray &disk);
