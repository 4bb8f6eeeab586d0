#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <sys/types.h>

/// Finds an item in the Trash by the Trash's own record of it, which is the proof that it is there. Made before
/// the move, to know the item again; asked after it. All paths are this computer's. Blocks; one thread at a time.
class TrashedItemFinder
{
public:
    /// `path` is absolute and standardised; what it leads to is on its way to the Trash, a link as itself.
    explicit TrashedItemFinder(const QByteArray &path);

    /// The folder that holds the item, all links resolved; absent when there is none.
    const std::optional<QByteArray> &realFolder() const { return m_realFolder; }

    /// Where the item is in the Trash. Absent when no Trash has both the very item and a record that it came from
    /// its path.
    std::optional<QByteArray> find() const;

private:
    struct Trash
    {
        QByteArray folder;
        /// What the paths in its records are relative to.
        QByteArray base;
    };

    QList<Trash> trashes() const;
    std::optional<QByteArray> findIn(const Trash &trash) const;
    bool isTheItem(const QByteArray &path) const;
    bool recordNamesTheItem(const Trash &trash, const QByteArray &name) const;

    QByteArray m_name;
    std::optional<QByteArray> m_realFolder;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};
