#include "WalkedFolder.h"

#include <algorithm>

WalkedFolder::~WalkedFolder()
{
    // Not one within the other: a tree can be deeper than the stack.
    while (parent && parent->ref.loadAcquire() == 1) {
        auto above = std::move(parent->parent);
        parent = std::move(above);
    }
}

QByteArray WalkedFolder::pathOf(QByteArrayView entry) const
{
    auto size = entry.size();
    for (const auto *folder = this; folder; folder = folder->parent.data())
        size += 1 + folder->name.size();
    QByteArray path(size, Qt::Uninitialized);
    auto *end = std::copy_backward(entry.begin(), entry.end(), path.end());
    for (const auto *folder = this; folder; folder = folder->parent.data()) {
        *--end = '/';
        end = std::copy_backward(folder->name.begin(), folder->name.end(), end);
    }
    return path;
}

WalkPlace WalkedFolder::placeOf(quint32 entryIndex) const
{
    WalkPlace place(static_cast<size_t>(level) + 2);
    auto next = place.rbegin();
    *next++ = entryIndex;
    for (const auto *folder = this; folder; folder = folder->parent.data())
        *next++ = folder->index;
    return place;
}

quint32 WalkedFolder::rootIndex() const
{
    const auto *folder = this;
    while (folder->parent)
        folder = folder->parent.data();
    return folder->index;
}
