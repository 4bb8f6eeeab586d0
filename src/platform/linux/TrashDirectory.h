#pragma once

#include "TrashFailure.h"

#include <QByteArray>

#include <variant>

/// A place for trashed items, laid out as all desktops agree on: the items in its folder "files", and in "info" a
/// record of each, which notes where the item came from. All paths are this computer's.
struct TrashDirectory
{
    QByteArray path;
    /// The volume's topmost folder, to which the origins in its records are relative; empty where they are absolute.
    QByteArray topDirectory;
};

/// The Trash for what lies in `folder`, made where it is missing: the user's own on the volume that holds it, on any
/// other volume the user's part of that volume's. Else why there is none. `folder` is free of links. Blocks; any
/// thread.
std::variant<TrashDirectory, TrashFailure> trashDirectoryFor(const QByteArray &folder);

/// The user's own Trash, whether it exists or not.
QByteArray homeTrash();
