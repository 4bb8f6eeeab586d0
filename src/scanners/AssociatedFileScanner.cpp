#include "AssociatedFileScanner.h"

#include "AllocatedSize.h"
#include "CodeSignature.h"
#include "FileNames.h"
#include "LibraryFolder.h"
#include "Spelling.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

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

/// The paths of these names as they are spelled, and the entries that spell one of them in another canonical way, as
/// those that come from a Mac do.
QList<Url> pathsInside(const FileSystem &fileSystem, const Url &folder, const QList<QByteArray> &names,
                       const char *suffix)
{
    QList<Url> paths;
    for (const auto &name : names) {
        const auto fileName = name + suffix;
        paths.append(folder / fileName);
        if (isAscii(fileName))
            continue;
        for (const auto &entry : fileSystem.contentsOfDirectory(folder)) {
            if (canonicalFileName(entry.name()) == canonicalFileName(fileName))
                paths.append(entry.url());
        }
    }
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
                      const FileSystem &fileSystem)
{
    const auto folder = libraryFolder(fileSystem) / probe.folder;
    switch (probe.name) {
    case Name::bundle:
        return application.isSystemApplication ? QList<Url>() : QList<Url>{application.url};
    case Name::identifier:
        return pathsInside(fileSystem, folder, names.identifiers, probe.suffix);
    case Name::eachCandidateName:
        return pathsInside(fileSystem, folder, names.candidateNames, probe.suffix);
    case Name::eachGroup:
        return pathsInside(fileSystem, folder, names.groups, probe.suffix);
    case Name::eachEntryNamedAfterIdentifier:
        return entriesNamedAfter(fileSystem, folder, names.identifiers);
    case Name::eachEntryContinuingIdentifier:
        return entriesContinuing(fileSystem, folder, names.identifiers);
    }
    Q_UNREACHABLE();
}

} // namespace

AssociatedFileScanner::AssociatedFileScanner(const FileSystem &fileSystem, const CodeSignature &codeSignature)
    : m_fileSystem(fileSystem), m_codeSignature(codeSignature)
{
}

QList<ScanItem> AssociatedFileScanner::scanAssociatedFiles(const InstalledApplication &application) const
{
    QList<ScanItem> items;
    std::unordered_set<QByteArray> seenPaths;
    const auto names = namesOf(application, m_codeSignature);
    for (const auto &probe : probes) {
        const bool isSelected = probe.confidence == exact && !application.isSystemApplication;
        for (const auto &url : probedUrls(probe, application, names, m_fileSystem)) {
            const bool isNew = seenPaths.insert(url.standardizedPath()).second;
            if (isNew && m_fileSystem.exists(url.standardized()))
                items.push_back({url, probe.kind, probe.confidence, /*sizeBytes*/ 0, isSelected});
        }
    }
    measure(m_fileSystem, items);
    std::ranges::stable_sort(items, std::greater{}, &ScanItem::sizeBytes);
    return items;
}
