#pragma once

#include "FileSystem.h"

#include <QList>
#include <QSet>

#include <functional>
#include <memory>
#include <stop_token>

/// Finds the bundles of a disk: those that lie in folders, and in each of them every bundle that it contains, of
/// whatever kind and however deep. What shows a bundle is its Info.plist; of that the identifier alone is read.
///
/// One object is one search: what has been looked through is not looked through again, so that places may overlap
/// and links may lead in circles. Costs are bounded, whatever a bundle is made of. Used by one thread, which the walks of
/// the file system call others for.
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
    /// told more than once: of bundles that lie in fewer others first, and of these in the order of the places.
    using Found = std::function<void(const QString &identifier, const Url &bundle)>;

    /// No bundle is read any more once `stop` is requested. `fileSystem` outlives the search.
    BundleSearch(const FileSystem &fileSystem, Found found, std::stop_token stop = {});

    /// Blocks; ends where it stands when the walks of `fileSystem` do. A place inside of another one is searched as
    /// itself alone.
    void search(const QList<Place> &places);

private:
    class Cost;
    /// What a walk begins at: a place, what belongs to one but is not entered from there, or a bundle.
    struct Root
    {
        /// A bundle's levels are those that it may have itself.
        Place place;
        std::shared_ptr<Cost> cost;
        bool isBundle = false;
        /// In how many others a bundle lies.
        int depth = 0;
    };

    QList<Root> rootsOf(const QList<Place> &places);
    QList<Root> walk(const QList<Root> &roots);
    std::optional<Root> beginningAt(DirectoryEntry &entry, const Root &root) const;
    std::optional<Root> nestedAt(DirectoryEntry &entry, const Root &root) const;

    const FileSystem &m_fileSystem;
    const Found m_found;
    const std::stop_token m_stop;
    /// Where walks have begun or are going to. It does not change during a walk.
    QSet<Url> m_seen;
};
