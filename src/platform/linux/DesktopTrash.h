#pragma once

#include "TrashFailure.h"

#include <QByteArray>

#include <optional>

/// What came of moving one item to the desktop's Trash.
struct TrashMove
{
    /// Absent when the item was moved.
    std::optional<TrashFailure> failure;
    /// Where on this computer it is now; empty when it was not moved.
    QByteArray place;
};

/// Moves what is at `path` of this computer, a link as itself, to the desktop's Trash. `path` is absolute and
/// standardised. Nothing is moved when, links resolved, it does not lie inside of `disk`; empty is everywhere.
///
/// Nothing is ever overwritten, whatever lies in the Trash, and nothing is moved before the Trash has noted where it
/// came from. Killed at any moment, the item is whole in exactly one place. Blocks; any thread.
TrashMove moveToDesktopTrash(const QByteArray &path, const QByteArray &disk);
