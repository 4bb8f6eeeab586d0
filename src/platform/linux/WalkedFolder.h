#pragma once

#include "DirectoryCalls.h"
#include "FileSystem.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>

#include <list>
#include <memory>

/// A folder that a walk has found, and the way to it. What is below it keeps it; where it lies never changes.
class WalkedFolder : public QSharedData
{
public:
    using Pointer = QExplicitlySharedDataPointer<WalkedFolder>;

    /// The folder at `url`, the one at `position` of those given to the walk.
    WalkedFolder(const Url &url, quint32 position) : name(url.path() == "/" ? "" : url.path()), index(position) { }
    /// The folder `ownName` in `holder`, at `position` in its listing.
    WalkedFolder(const Pointer &holder, const QByteArray &ownName, quint32 position)
        : parent(holder), name(ownName), index(position), level(holder->level + 1)
    {
    }
    ~WalkedFolder();
    Q_DISABLE_COPY_MOVE(WalkedFolder)

    /// The path of `entry` in this folder.
    QByteArray pathOf(QByteArrayView entry) const;

    /// Where the entry at `entryIndex` of its listing comes.
    WalkPlace placeOf(quint32 entryIndex) const;

    /// Which of the folders given to the walk it lies in.
    quint32 rootIndex() const;

    /// Null for a folder that was given to the walk.
    Pointer parent;
    /// Its path, empty for the disk's root, when it was given to the walk.
    const QByteArray name;
    const quint32 index;
    const int level = 0;

    /// What `FolderDescriptors` knows of it.
    struct Opened
    {
        std::shared_ptr<const FileDescriptor> descriptor = {};
        FolderIdentity identity = {};
        /// How many folders are still to be opened from it.
        size_t waiting = 0;
        std::list<WalkedFolder *>::iterator position = {};
    } opened;
};
