#pragma once

#include "Url.h"

#include <QFuture>
#include <QHash>
#include <QString>

#include <optional>

/// What came of moving items to the Trash.
struct RecycleAnswer
{
    /// From each moved item's URL, as it was given, to its place in the Trash; an empty one for a Trash that is not on
    /// the disk.
    QHash<Url, Url> movedItems;
    /// Why something could not be moved, worded for the user; absent when there was no error.
    std::optional<QString> error;
};

/// The desktop: its Trash and its file manager. Called on the main thread only.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Moves the item at `item` (a link as itself) to the user's Trash, never deleting anything. The move happens
    /// off the calling thread and is finished even when the program quits; the answer comes exactly once.
    virtual QFuture<RecycleAnswer> recycle(const Url &item) = 0;

    /// Returns when every move that was asked for has been made. Blocks; for when the program quits.
    virtual void waitForMoves() = 0;

    /// Shows `item` selected in the desktop's file manager, else the folder that holds it; nothing happens where
    /// the desktop can do neither. Returns at once.
    virtual void reveal(const Url &item) = 0;

    /// Where, on the disk that the program works on, lies what the desktop hands over as `location` (dropped, chosen
    /// in a dialog); absent where that disk does not have it.
    virtual std::optional<Url> locationOnDisk(const Url &location) const = 0;

    /// Asks for access to a location that the user chose or dropped. True when access was granted and has to be
    /// given back with `stopAccessing`; false where the system has no such grants.
    virtual bool startAccessing(const Url &location) = 0;
    virtual void stopAccessing(const Url &location) = 0;
};
