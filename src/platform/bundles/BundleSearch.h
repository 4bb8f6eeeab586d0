#pragma once

#include "FileSystem.h"

#include <QList>
#include <QSet>

#include <functional>

/// Finds the bundles of a disk: those that lie in folders, and in each of them every bundle that it contains, of
/// whatever kind and however deep. What shows a bundle is its Info.plist; of that the identifier alone is read.
///
/// One object is one search: what has been looked through is not looked through again, so that places may overlap
/// and links may lead in circles. Costs are bounded, whatever a bundle is made of. Used by one thread.
class BundleSearch
{
public:
    enum class Links {
        kept,
        /// A link to a folder or to a bundle stands for what it leads to.
        followed
    };

    /// A folder that bundles lie in.
    struct Place
    {
        /// May be a link itself.
        Url folder;
        /// How many levels down a bundle may lie; direct children are at level 1. With 0 the folder is not searched,
        /// nor as a part of another place.
        int levels;
        /// Of those outside of bundles. Within a bundle a link leads to what is found without it.
        Links links;
    };

    /// Told an identifier, never empty, and where the bundle is that has it, all links resolved. An identifier may be
    /// told more than once.
    using Found = std::function<void(const QString &identifier, const Url &bundle)>;

    /// `fileSystem` outlives the search.
    BundleSearch(const FileSystem &fileSystem, Found found);

    /// Blocks; ends where it stands when the enumerations of `fileSystem` do. A place inside of another one is
    /// searched as itself alone.
    void search(const QList<Place> &places);

private:
    struct BundleCost;

    void searchPlace(const Place &place);
    void lookAt(DirectoryEntry &entry, const Place &place);
    void lookThrough(const Url &bundle);
    void lookAtInside(DirectoryEntry &entry, QList<Url> &nested, BundleCost &cost);
    void read(const Url &information, BundleCost &cost);

    const FileSystem &m_fileSystem;
    const Found m_found;
    /// Still to be searched.
    QList<Place> m_places;
    /// The folders of places, and bundles, that have been searched or are going to be.
    QSet<Url> m_seen;
};
