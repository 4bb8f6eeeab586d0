#include "BundleSearch.h"

#include "BundleBudget.h"
#include "BundleLayout.h"
#include "OrderedResults.h"
#include "Packages.h"
#include "PropertyList.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <utility>

namespace {

// Far more than lies outside of bundles where people keep them.
constexpr qint64 mostEntriesOfPlace = 5'000'000;
constexpr qint64 mostEntriesOfBundle = 1'500'000;

constexpr int deepestFolderOfBundle = 32;
// Together with that, deeper than any path that a program for the Mac can work with.
constexpr int deepestBundle = 16;

/// The bundle that has its information at `information`.
Url bundleOf(const Url &information)
{
    const auto folder = information.parent();
    const auto name = folder.lastPathComponent();
    return name == bundleContents || name == "Resources" ? folder.parent() : folder;
}

} // namespace

/// What looking through a place, or through one bundle with all that it contains, has left to spend. Safe to use from
/// several threads.
class BundleSearch::Cost
{
public:
    Cost(qint64 entries, std::stop_token stop) : m_entries(entries), m_budget(std::move(stop)) { }

    /// Whether one more entry may be looked at.
    bool spendEntry() { return m_entries.fetch_sub(1, std::memory_order_relaxed) > 0; }

    /// The identifier in the property list at `information`; empty where there is none.
    QString identifierIn(const FileSystem &fileSystem, const Url &information)
    {
        const std::lock_guard lock(m_mutex);
        const auto list = readPropertyListFile(fileSystem, information, m_budget);
        const auto identifier = list ? list->value(QStringLiteral("CFBundleIdentifier")) : QVariant();
        return identifier.typeId() == QMetaType::QString ? identifier.toString() : QString();
    }

private:
    std::atomic<qint64> m_entries;
    std::mutex m_mutex;
    BundleBudget m_budget;
};

BundleSearch::BundleSearch(const FileSystem &fileSystem, Found found, std::stop_token stop)
    : m_fileSystem(fileSystem), m_found(std::move(found)), m_stop(std::move(stop))
{
}

void BundleSearch::search(const QList<Place> &places)
{
    for (auto roots = rootsOf(places); !roots.isEmpty();)
        roots = walk(roots);
}

QList<BundleSearch::Root> BundleSearch::rootsOf(const QList<Place> &places)
{
    QList<Root> roots;
    for (auto place : places) {
        const auto folder = m_fileSystem.resolved(place.folder);
        if (!folder || m_seen.contains(*folder))
            continue;
        m_seen.insert(*folder);
        place.folder = *folder;
        if (place.levels > 0)
            roots.append({place, std::make_shared<Cost>(mostEntriesOfPlace, m_stop)});
    }
    return roots;
}

/// Tells of the bundles whose information lies below `roots`, and answers where to go on.
QList<BundleSearch::Root> BundleSearch::walk(const QList<Root> &roots)
{
    struct Identity
    {
        QString identifier;
        Url bundle;
    };
    OrderedResults<Identity> identities;
    OrderedResults<Root> beginnings;
    const auto visit = [&](FolderPart &part) {
        const auto &root = roots[static_cast<qsizetype>(part.walkedFolder())];
        for (auto &entry : part) {
            if (!root.cost->spendEntry())
                return;
            if (entry.level() >= root.place.levels)
                entry.skipDescendants();
            if (auto next = root.isBundle ? nestedAt(entry, root) : beginningAt(entry, root))
                beginnings.add(entry.place(), std::move(*next));
            if (!root.isBundle || entry.name() != bundleInformation || entry.type() == FileType::directory)
                continue;
            const auto information = entry.url();
            auto identifier = root.cost->identifierIn(m_fileSystem, information);
            if (!identifier.isEmpty())
                identities.add(entry.place(), {std::move(identifier), bundleOf(information)});
        }
    };
    QList<Url> folders;
    std::ranges::transform(roots, std::back_inserter(folders), [](const Root &root) { return root.place.folder; });
    m_fileSystem.walk(folders, visit);

    for (const auto &[identifier, bundle] : identities.take())
        m_found(identifier, bundle);
    QList<Root> unseen;
    for (auto &root : beginnings.take()) {
        if (m_seen.contains(root.place.folder))
            continue;
        m_seen.insert(root.place.folder);
        unseen.append(std::move(root));
    }
    return unseen;
}

/// The bundle, or the part of the place, that begins at an entry of the place `root`.
std::optional<BundleSearch::Root> BundleSearch::beginningAt(DirectoryEntry &entry, const Root &root) const
{
    const bool isFollowedLink = entry.type() == FileType::symbolicLink && root.place.links == Links::followed;
    if (entry.type() != FileType::directory && !isFollowedLink)
        return std::nullopt;
    const auto folder = isFollowedLink ? m_fileSystem.resolved(entry.url()) : std::optional(entry.url());
    if (!folder || m_seen.contains(*folder)) {
        entry.skipDescendants();
        return std::nullopt;
    }
    // Every bundle has an extension, and nearly no other folder has.
    const bool mayBeBundle = isFollowedLink || !extensionOf(entry.name()).isEmpty();
    if (mayBeBundle && m_fileSystem.exists(bundleLayout(m_fileSystem, *folder).information)) {
        entry.skipDescendants();
        return Root{.place = {*folder, deepestFolderOfBundle, Links::kept},
                    .cost = std::make_shared<Cost>(mostEntriesOfBundle, m_stop),
                    .isBundle = true};
    }
    // No walk enters these by itself.
    if (entry.level() < root.place.levels && (isFollowedLink || isPackageName(entry.name())))
        return Root{.place = {*folder, root.place.levels - entry.level(), root.place.links}, .cost = root.cost};
    return std::nullopt;
}

/// The bundle that begins at an entry of the bundle `root`, or that this one shows the folder around it to be.
std::optional<BundleSearch::Root> BundleSearch::nestedAt(DirectoryEntry &entry, const Root &root) const
{
    if (entry.type() != FileType::directory)
        return std::nullopt;
    // A bundle of another name is a bundle, too. The first level holds the contents of the one looked through.
    const bool showsParent = entry.level() > 1 && entry.name() == bundleContents;
    if (!showsParent && !isPackageName(entry.name()))
        return std::nullopt;
    entry.skipDescendants();
    if (root.depth + 1 == deepestBundle)
        return std::nullopt;
    return Root{.place = {showsParent ? entry.url().parent() : entry.url(), deepestFolderOfBundle, Links::kept},
                .cost = root.cost,
                .isBundle = true,
                .depth = root.depth + 1};
}
