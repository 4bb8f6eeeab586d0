#pragma once

#include "FileSystem.h"
#include "TemporaryDisk.h"

#include <compare>
#include <random>
#include <vector>

/// A tree that a number decides: branches down to 200 levels with folders of siblings along the way, hidden items,
/// packages, links, pipes, and names of any bytes.
class RandomTree
{
public:
    /// What a walk tells of an entry.
    struct Entry
    {
        QByteArray path;
        FileType type;
        qint64 size;
        auto operator<=>(const Entry &) const = default;
    };

    /// Made at `top` on the disk, where nothing is yet.
    RandomTree(const TemporaryDisk &disk, const Url &top, unsigned variation);

    const Url &top() const { return m_top; }

    /// What is below `folder`, as a function that calls itself sees it: it holds a folder open for every level.
    std::vector<Entry> walked() const;

private:
    void fill(int folder, int levelsLeft);
    void addFiles(int folder);
    QByteArray newName();
    int number(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    const TemporaryDisk &m_disk;
    const Url m_top;
    std::mt19937 m_random;
};
