#pragma once

#include "TrashFailure.h"

#include <QByteArray>

#include <optional>

/// What came of moving one item to the desktop's Trash.
struct TrashMove
{
    /// Absent when the item was moved.
    std::optional<TrashFailure> failure;
    /// Where on this computer it is now, absent when it is in no Trash that we know.
    std::optional<QByteArray> place;
};

/// Moves what is at `path` of this computer, a link as itself, to the desktop's Trash. `path` is absolute and
/// standardised. Nothing is moved when, links resolved, it does not lie inside of `disk`; empty is everywhere.
/// What the Trash takes without noting where it came from, so that nothing could put it back, is put back at once.
/// Blocks; any thread.
TrashMove moveToDesktopTrash(const QByteArray &path, const QByteArray &disk);
