#pragma once

#include "DiskRoot.h"
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

/// Moves what is at `item` of the disk, a link as itself, to the desktop's Trash. `item` is standardised. What is moved is
/// what was found there: its folder is held open meanwhile.
///
/// Nothing is ever overwritten, whatever lies in the Trash, and nothing is moved before the Trash has noted where it
/// came from. Killed at any moment, the item is whole in exactly one place. Blocks; any thread.
TrashMove moveToDesktopTrash(const DiskRoot &disk, const Url &item);
