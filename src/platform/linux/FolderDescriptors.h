#pragma once

#include "WalkedFolder.h"

#include <functional>
#include <mutex>

/// The folders that a walk has open because folders are still to be opened from them. Of those that would be too
/// many the ones that are needed again last are closed; they are opened again only as the very folders that they
/// were. Safe to use from several threads.
class FolderDescriptors
{
public:
    using Descriptor = std::shared_ptr<const FileDescriptor>;
    /// Opens the folder of this path that was given to the walk.
    using Opener = std::function<FileDescriptor(const WalkedFolder &)>;

    FolderDescriptors(size_t most, Opener openGiven) : m_openGiven(std::move(openGiven)), m_most(most) { }

    /// Folders are going to be opened from `folder`, so many more than known before, which `descriptor` has open.
    void keep(WalkedFolder &folder, const Descriptor &descriptor, size_t count);

    /// Something from which the children of `folder` can be opened; null when it is not found where it was, and with
    /// the system's error number when it cannot be opened.
    Descriptor of(WalkedFolder &folder);

    /// One of the folders that were to be opened from `folder` has been.
    void release(WalkedFolder &folder);

    /// Closes them all for now and keeps half as many from now on, since the system has no more; false when that was
    /// tried down to one.
    bool keepFewer();

private:
    void add(WalkedFolder &folder, const Descriptor &descriptor);
    Descriptor close(WalkedFolder &folder);
    FileDescriptor openAgain(const WalkedFolder &folder, const Descriptor &parent) const;

    const Opener m_openGiven;
    std::mutex m_mutex;
    size_t m_most;
    /// In the order in which they were opened: the first is the nearest to the top, so it is needed again last.
    std::list<WalkedFolder *> m_open;
};
