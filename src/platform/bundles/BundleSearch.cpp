#include "BundleSearch.h"

#include "BundleBudget.h"
#include "BundleLayout.h"
#include "Packages.h"
#include "PropertyList.h"

#include <algorithm>

namespace {

/// The bundle that has its information at `information`.
Url bundleOf(const Url &information)
{
    const auto folder = information.parent();
    const auto name = folder.lastPathComponent();
    return name == bundleContents || name == "Resources" ? folder.parent() : folder;
}

} // namespace

/// What looking through one bundle, with all that it contains, has left to spend.
struct BundleSearch::BundleCost
{
    bool spendEntry() { return --entries >= 0; }

    qint64 entries = 1'500'000;
    BundleBudget budget;
};

BundleSearch::BundleSearch(const FileSystem &fileSystem, Found found)
    : m_fileSystem(fileSystem), m_found(std::move(found))
{
}

void BundleSearch::search(const QList<Place> &places)
{
    for (auto place : places) {
        const auto folder = m_fileSystem.resolved(place.folder);
        if (!folder || m_seen.contains(*folder))
            continue;
        m_seen.insert(*folder);
        place.folder = *folder;
        if (place.levels > 0)
            m_places.append(place);
    }
    while (!m_places.isEmpty())
        searchPlace(m_places.takeFirst());
}

void BundleSearch::searchPlace(const Place &place)
{
    // Far more than lies outside of bundles where people keep them.
    constexpr int mostEntries = 5'000'000;
    int entries = 0;
    for (auto &entry : m_fileSystem.enumerate(place.folder)) {
        if (++entries > mostEntries)
            return;
        if (entry.level() >= place.levels)
            entry.skipDescendants();
        lookAt(entry, place);
    }
}

void BundleSearch::lookAt(DirectoryEntry &entry, const Place &place)
{
    const bool isFollowedLink = entry.type() == FileType::symbolicLink && place.links == Links::followed;
    if (entry.type() != FileType::directory && !isFollowedLink)
        return;
    const auto folder = isFollowedLink ? m_fileSystem.resolved(entry.url()) : std::optional(entry.url());
    if (!folder || m_seen.contains(*folder)) {
        entry.skipDescendants();
        return;
    }
    // Every bundle has an extension, and nearly no other folder has.
    const bool mayBeBundle = isFollowedLink || !extensionOf(entry.name()).isEmpty();
    if (mayBeBundle && m_fileSystem.exists(bundleLayout(m_fileSystem, *folder).information)) {
        entry.skipDescendants();
        lookThrough(*folder);
    } else if (entry.level() < place.levels && (isFollowedLink || isPackageName(entry.name()))) {
        // No walk enters these by itself.
        m_seen.insert(*folder);
        m_places.append({*folder, place.levels - entry.level(), place.links});
    }
}

void BundleSearch::lookThrough(const Url &bundle)
{
    constexpr int deepestFolder = 32;
    // Together with `deepestFolder`, deeper than any path that a program for the Mac can work with.
    constexpr int deepestBundle = 16;

    BundleCost cost;
    QList<Url> bundles{bundle};
    for (int depth = 0; depth < deepestBundle && !bundles.isEmpty(); ++depth) {
        QList<Url> nested;
        for (const auto &next : std::as_const(bundles)) {
            if (m_seen.contains(next))
                continue;
            m_seen.insert(next);
            for (auto &entry : m_fileSystem.enumerate(next)) {
                if (!cost.spendEntry())
                    return;
                if (entry.level() == deepestFolder)
                    entry.skipDescendants();
                lookAtInside(entry, nested, cost);
            }
        }
        bundles = std::move(nested);
    }
}

void BundleSearch::lookAtInside(DirectoryEntry &entry, QList<Url> &nested, BundleCost &cost)
{
    if (entry.type() == FileType::directory) {
        // A bundle of another name is a bundle, too. The first level holds the contents of the one looked through.
        const bool belongsToNested = entry.level() > 1 && entry.name() == bundleContents;
        if (belongsToNested || isPackageName(entry.name())) {
            entry.skipDescendants();
            nested.append(belongsToNested ? entry.url().parent() : entry.url());
        }
    } else if (entry.name() == bundleInformation) {
        read(entry.url(), cost);
    }
}

void BundleSearch::read(const Url &information, BundleCost &cost)
{
    const auto list = readPropertyListFile(m_fileSystem, information, cost.budget);
    const auto identifier = list ? list->value(QStringLiteral("CFBundleIdentifier")) : QVariant();
    if (identifier.typeId() == QMetaType::QString && !identifier.toString().isEmpty())
        m_found(identifier.toString(), bundleOf(information));
}
