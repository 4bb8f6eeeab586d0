#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <sys/types.h>

/// An item in the Trash. Both paths are this computer's.
struct TrashedItem
{
    QByteArray place;
    /// The file in which the Trash notes where the item came from.
    QByteArray record;
    /// Whether it does so: without that, nothing can put the item back.
    bool isRecorded;
};

/// Finds an item again in the Trash, since nothing says where it went. Made before the move, to recognise the
/// item; asked after it. All paths are this computer's. Blocks; one thread at a time.
class TrashedItemFinder
{
public:
    /// `path` is absolute and standardised; what it leads to is on its way to the Trash, a link as itself.
    explicit TrashedItemFinder(const QByteArray &path);

    /// The folder that holds the item, all links resolved; absent when there is none.
    const std::optional<QByteArray> &realFolder() const { return m_realFolder; }

    /// The very item in the Trash; absent when it is in none.
    std::optional<TrashedItem> find() const;

private:
    struct Trash
    {
        QByteArray folder;
        /// What the paths in its records are relative to.
        QByteArray base;
    };

    QList<Trash> trashes() const;
    std::optional<TrashedItem> findIn(const Trash &trash) const;
    bool isTheItem(const QByteArray &path) const;
    bool namesTheItem(const QByteArray &record, const QByteArray &base) const;

    QByteArray m_name;
    std::optional<QByteArray> m_realFolder;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

/// The user's own Trash, where the desktop's library looks for it; a folder of this computer.
QByteArray homeTrash();
