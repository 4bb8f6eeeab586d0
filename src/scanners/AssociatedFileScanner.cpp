#include "AssociatedFileScanner.h"

#include "AllocatedSize.h"
#include "CodeSignature.h"
#include "FileNames.h"
#include "LibraryFolder.h"
#include "NameMatcher.h"
#include "Spelling.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <vector>

namespace {

/// What the last component of a probed path is.
enum class Name {
    /// No folder of the Library is probed, but the application itself.
    bundle,
    identifier,
    eachCandidateName,
    eachGroup,
    /// Whatever is named after the identifier or an identifier that continues it, its extension left out.
    eachEntryNamedAfterIdentifier,
    /// Whatever has a name that continues the identifier.
    eachEntryContinuingIdentifier
};

/// A place where an application may keep something.
struct Probe
{
    /// In the Library.
    const char *folder;
    Name name;
    /// Follows the name.
    const char *suffix;
    ScanItemKind kind;
    /// What is exact starts selected, what is probable does not.
    ScanConfidence confidence;
};

using enum ScanItemKind;
using enum ScanConfidence;

// An earlier row wins when two name the same path: an exact probe always stands before the probable probe of the
// same folder.
// clang-format off
constexpr Probe probes[] = {
    // folder                   name                                 suffix            kind                confidence
    {"",                        Name::bundle,                        "",               application,        exact},
    {"Application Support",     Name::identifier,                    "",               applicationSupport, exact},
    {"Application Support",     Name::eachCandidateName,             "",               applicationSupport, probable},
    {"Caches",                  Name::identifier,                    "",               cache,              exact},
    {"Caches",                  Name::eachCandidateName,             "",               cache,              probable},
    {"Containers",              Name::identifier,                    "",               container,          exact},
    {"Application Scripts",     Name::identifier,                    "",               container,          exact},
    {"Logs",                    Name::identifier,                    "",               log,                exact},
    {"Logs",                    Name::eachCandidateName,             "",               log,                probable},
    {"Saved Application State", Name::identifier,                    ".savedState",    savedState,         exact},
    {"WebKit",                  Name::identifier,                    "",               webData,            exact},
    {"HTTPStorages",            Name::identifier,                    "",               webData,            exact},
    {"Cookies",                 Name::identifier,                    ".binarycookies", webData,            exact},
    {"Preferences",             Name::identifier,                    ".plist",         preference,         exact},
    {"Group Containers",        Name::eachGroup,                     "",               container,          exact},
    {"LaunchAgents",            Name::eachEntryNamedAfterIdentifier, "",               applicationSupport, exact},
    {"Preferences/ByHost",      Name::eachEntryContinuingIdentifier, "",               preference,         exact},
};
// clang-format on

/// What an application goes by. Only what can be a file's name is in here: a hostile bundle that calls itself ".."
/// must not have a whole area offered.
struct Names
{
    /// One at most.
    QList<QByteArray> identifiers;
    QList<QByteArray> candidateNames;
    QList<QByteArray> groups;
};

QList<QByteArray> fileNamesAmong(const QList<QByteArray> &names)
{
    QList<QByteArray> fileNames;
    std::ranges::copy_if(names, std::back_inserter(fileNames), isFileName);
    return fileNames;
}

QList<QByteArray> candidateNames(const InstalledApplication &application)
{
    QList<QByteArray> names{encodedFileName(application.name)};
    if (const auto fileName = application.url.nameWithoutExtension(); !names.contains(fileName))
        names.append(fileName);
    return fileNamesAmong(names);
}

// One value that is not a text makes the whole list unusable: it is not what it claims to be.
QList<QByteArray> applicationGroupIdentifiers(const std::optional<QVariantMap> &entitlements)
{
    QList<QByteArray> groups;
    if (!entitlements)
        return groups;
    const auto values = entitlements->value(QStringLiteral("com.apple.security.application-groups")).toList();
    for (const auto &value : values) {
        if (value.typeId() != QMetaType::QString)
            return {};
        groups.append(encodedFileName(value.toString()));
    }
    return fileNamesAmong(groups);
}

Names namesOf(const InstalledApplication &application, const CodeSignature &codeSignature)
{
    return {fileNamesAmong({encodedFileName(application.bundleIdentifier)}), candidateNames(application),
            applicationGroupIdentifiers(codeSignature.entitlements(application.url))};
}

/// The path of this name as it is spelled, and the entries that spell it in another canonical way, as those that come
/// from a Mac do.
QList<Url> spelledPaths(const FileSystem &fileSystem, const Url &folder, const QByteArray &fileName)
{
    QList<Url> paths{folder / fileName};
    if (isAscii(fileName))
        return paths;
    for (const auto &entry : fileSystem.contentsOfDirectory(folder)) {
        if (canonicalFileName(entry.name()) == canonicalFileName(fileName))
            paths.append(entry.url());
    }
    return paths;
}

/// What a Mac finds under the names of one application, on a disk that may tell names apart that are one on the Mac.
/// Every folder is listed once.
class MacNames
{
public:
    MacNames(const FileSystem &fileSystem, const Names &names) : m_fileSystem(fileSystem)
    {
        for (const auto *kind : {&names.identifiers, &names.candidateNames, &names.groups}) {
            for (const auto &name : *kind)
                addWanted(name);
        }
    }

    /// The entries of this very name, in any canonical spelling; else the only one that differs from it in case alone.
    /// Where there are several of these, the disk's own computer told them apart, and did not find them.
    QList<Url> paths(const Url &folder, const QByteArray &fileName)
    {
        const Wanted wanted(fileName);
        QList<Url> same;
        QList<Url> alike;
        for (const auto &entry : entriesOf(folder)) {
            const auto name = entry.lastPathComponent();
            if (canonicalFileName(name) == canonicalFileName(fileName))
                same.append(entry);
            else if (wanted.isNameOf(name))
                alike.append(entry);
        }
        if (same.isEmpty() && alike.size() == 1)
            return alike;
        return same;
    }

private:
    struct Wanted
    {
        explicit Wanted(const QByteArray &fileName)
            : bytes(fileName), matcher(decodedFileName(fileName).value_or(QString()))
        {
        }
        bool isNameOf(QByteArrayView entry) const { return entry == bytes || matcher.matchesFileName(entry); }

        QByteArray bytes;
        NameMatcher matcher;
    };

    void addWanted(const QByteArray &name)
    {
        QSet<QByteArray> suffixes;
        for (const auto &probe : probes)
            suffixes.insert(probe.suffix);
        for (const auto &suffix : std::as_const(suffixes))
            m_wanted.emplace_back(name + suffix);
    }

    /// Those that have a wanted name in any case; of a million others nothing is kept.
    const QList<Url> &entriesOf(const Url &folder)
    {
        const auto known = m_entries.constFind(folder.path());
        if (known != m_entries.constEnd())
            return *known;
        QList<Url> entries;
        for (const auto &entry : m_fileSystem.contentsOfDirectory(folder)) {
            if (std::ranges::any_of(m_wanted, [&](const Wanted &wanted) { return wanted.isNameOf(entry.name()); }))
                entries.append(entry.url());
        }
        return *m_entries.insert(folder.path(), entries);
    }

    const FileSystem &m_fileSystem;
    std::vector<Wanted> m_wanted;
    /// By the folder's path.
    QHash<QByteArray, QList<Url>> m_entries;
};

/// What a name stands for in a folder.
using PathFinder = std::function<QList<Url>(const Url &folder, const QByteArray &fileName)>;

QList<Url> pathsInside(const Url &folder, const QList<QByteArray> &names, const char *suffix,
                       const PathFinder &find)
{
    QList<Url> paths;
    for (const auto &name : names)
        paths.append(find(folder, name + suffix));
    return paths;
}

QList<Url> entriesNamedAfter(const FileSystem &fileSystem, const Url &folder, const QList<QByteArray> &identifiers)
{
    QList<Url> paths;
    for (const auto &identifier : identifiers) {
        const auto wanted = canonicalFileName(identifier);
        for (const auto &entry : fileSystem.contentsOfDirectory(folder)) {
            const auto url = entry.url();
            const auto name = canonicalFileName(url.nameWithoutExtension());
            // The dot keeps an identifier that merely begins alike from matching.
            if (name == wanted || name.startsWith(wanted + '.'))
                paths.append(url);
        }
    }
    return paths;
}

QList<Url> entriesContinuing(const FileSystem &fileSystem, const Url &folder, const QList<QByteArray> &identifiers)
{
    QList<Url> paths;
    for (const auto &identifier : identifiers) {
        const auto wanted = canonicalFileName(identifier) + '.';
        for (const auto &entry : fileSystem.contentsOfDirectory(folder)) {
            if (canonicalFileName(entry.name()).startsWith(wanted))
                paths.append(entry.url());
        }
    }
    return paths;
}

/// Where the probe looks, whether or not anything is there.
QList<Url> probedUrls(const Probe &probe, const InstalledApplication &application, const Names &names,
                      const FileSystem &fileSystem, const PathFinder &find)
{
    const auto folder = libraryFolder(fileSystem) / probe.folder;
    switch (probe.name) {
    case Name::bundle:
        return application.isSystemApplication ? QList<Url>() : QList<Url>{application.url};
    case Name::identifier:
        return pathsInside(folder, names.identifiers, probe.suffix, find);
    case Name::eachCandidateName:
        return pathsInside(folder, names.candidateNames, probe.suffix, find);
    case Name::eachGroup:
        return pathsInside(folder, names.groups, probe.suffix, find);
    case Name::eachEntryNamedAfterIdentifier:
        return entriesNamedAfter(fileSystem, folder, names.identifiers);
    case Name::eachEntryContinuingIdentifier:
        return entriesContinuing(fileSystem, folder, names.identifiers);
    }
    Q_UNREACHABLE();
}

} // namespace

AssociatedFileScanner::AssociatedFileScanner(const FileSystem &fileSystem, const CodeSignature &codeSignature,
                                             NamesOnDisk namesOnDisk)
    : m_fileSystem(fileSystem), m_codeSignature(codeSignature), m_namesOnDisk(namesOnDisk)
{
}

QList<ScanItem> AssociatedFileScanner::scanAssociatedFiles(const InstalledApplication &application) const
{
    QList<ScanItem> items;
    std::unordered_set<QByteArray> seenPaths;
    const auto names = namesOf(application, m_codeSignature);
    MacNames macNames(m_fileSystem, names);
    const auto find = [&](const Url &folder, const QByteArray &fileName) {
        return m_namesOnDisk == NamesOnDisk::asOnMac ? macNames.paths(folder, fileName)
                                                     : spelledPaths(m_fileSystem, folder, fileName);
    };
    for (const auto &probe : probes) {
        const bool isSelected = probe.confidence == exact && !application.isSystemApplication;
        for (const auto &url : probedUrls(probe, application, names, m_fileSystem, find)) {
            const bool isNew = seenPaths.insert(url.standardizedPath()).second;
            if (isNew && m_fileSystem.exists(url.standardized()))
                items.push_back({url, probe.kind, probe.confidence, /*sizeBytes*/ 0, isSelected});
        }
    }
    measure(m_fileSystem, items);
    std::ranges::stable_sort(items, std::greater{}, &ScanItem::sizeBytes);
    return items;
}
