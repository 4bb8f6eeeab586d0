#pragma once

#include "DiskRoot.h"
#include "Workspace.h"

#include <QThreadPool>

/// The Trash that desktops share, and their file manager over the session bus.
class LinuxWorkspace : public Workspace
{
public:
    explicit LinuxWorkspace(DiskRoot disk);

    /// Waits for the moves under way.
    ~LinuxWorkspace() override;

    /// An error is worded in Polish or English, after the system's language. An item is refused that is not on the
    /// disk once links are resolved. Moves are made one after another.
    QFuture<RecycleAnswer> recycle(const Url &item) override;
    void waitForMoves() override;
    void reveal(const Url &item) override;

    std::optional<Url> locationOnDisk(const Url &location) const override;

    /// Linux has no such grants.
    bool startAccessing(const Url &location) override;
    void stopAccessing(const Url &location) override;

private:
    DiskRoot m_disk;
    QThreadPool m_trashThread;
};
