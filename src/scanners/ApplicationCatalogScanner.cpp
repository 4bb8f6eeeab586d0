#include "ApplicationCatalogScanner.h"

#include "AllocatedSize.h"
#include "Enumerations.h"
#include "FileSystem.h"
#include "NameMatcher.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <unordered_set>

namespace {

struct Root
{
    Url folder;
    bool isSystem;
};

// The first root that yields a path decides what it is.
QList<Root> roots(const FileSystem &fileSystem)
{
    return {
        {Url("/Applications"), false},
        {fileSystem.homeDirectory() / "Applications", false},
        {Url("/System/Applications"), true},
    };
}

// The C locale orders by code points, which puts letters with marks behind "z". The order of the language that the
// program starts in takes its place.
QCollator systemCollator()
{
    const auto locale = QLocale::system().collation();
    QCollator collator(locale.language() == QLocale::C ? localeOf(AppLanguage{}) : locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

// "Name.app" stands for "Name"; "com.vendor.app" may be an identifier and stays whole.
QString nameToFind(const QString &query)
{
    const auto name = query.trimmed();
    const bool isNameAndExtension =
        name.endsWith(u".app", Qt::CaseInsensitive) && name.split(u'.', Qt::SkipEmptyParts).size() == 2;
    return isNameAndExtension ? name.chopped(4) : name;
}

} // namespace

ApplicationCatalogScanner::ApplicationCatalogScanner(const FileSystem &fileSystem,
                                                     const BundleReader &bundleReader)
    : m_fileSystem(fileSystem), m_applicationReader(fileSystem, bundleReader)
{
}

QList<InstalledApplication> ApplicationCatalogScanner::scanApplications() const
{
    QList<InstalledApplication> applications;
    std::unordered_set<QByteArray> seenPaths;
    for (const auto &[folder, isSystem] : roots(m_fileSystem)) {
        for (const auto &entry : m_fileSystem.contentsOfDirectory(folder)) {
            const auto url = entry.url();
            if (!seenPaths.insert(url.standardizedPath()).second)
                continue;
            if (auto application = m_applicationReader.unmeasuredApplicationAt(url, isSystem))
                applications.append(std::move(*application));
        }
    }
    measure(m_fileSystem, applications);
    const auto collator = systemCollator();
    std::ranges::stable_sort(
        applications, [&collator](const auto &a, const auto &b) { return collator.compare(a.name, b.name) < 0; });
    return applications;
}

std::optional<InstalledApplication>
ApplicationCatalogScanner::findApplication(const QString &query, const QList<InstalledApplication> &applications)
{
    const auto name = nameToFind(query);
    if (name.isEmpty())
        return std::nullopt;
    const NameMatcher wanted(name);
    const auto found = std::ranges::find_if(applications, [&wanted](const InstalledApplication &application) {
        return wanted.matches(application.name) || wanted.matchesFileName(application.url.nameWithoutExtension())
               || wanted.matches(application.bundleIdentifier);
    });
    return found == applications.end() ? std::nullopt : std::optional(*found);
}
