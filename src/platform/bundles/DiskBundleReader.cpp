#include "DiskBundleReader.h"

#include "BundleBudget.h"
#include "BundleLayout.h"
#include "BundlePicture.h"
#include "FileSystem.h"
#include "Localization.h"
#include "PropertyList.h"

#include <algorithm>
#include <utility>

namespace {

// What a bundle is must not depend on the user's language.
constexpr QStringView neverLocalized[] = {u"CFBundleIdentifier", u"CFBundleExecutable", u"CFBundlePackageType"};

// Far more, and far longer, than languages have names.
constexpr qsizetype mostTranslations = 1000;
constexpr qsizetype longestLanguage = 64;

bool isLanguage(const QString &name)
{
    return !name.isEmpty() && name.size() <= longestLanguage;
}

/// The languages into which the compiled table `table` translates.
QStringList translationsIn(const QVariantMap &table)
{
    QStringList languages;
    for (const auto &[language, translation] : table.asKeyValueRange()) {
        if (translation.typeId() == QMetaType::QVariantMap && isLanguage(language))
            languages.append(language);
        if (languages.size() == mostTranslations)
            break;
    }
    return languages;
}

/// What LANGUAGE is in the names of the folders LANGUAGE.lproj.
QStringList translationFolders(const FileSystem &fileSystem, const Url &resources, BundleBudget &budget)
{
    QStringList languages;
    for (const auto &entry : fileSystem.contentsOfDirectory(resources)) {
        if (!budget.spendEntry())
            break;
        if (extensionOf(entry.name()) != "lproj")
            continue;
        const auto language = QString::fromUtf8(entry.name().chopped(QByteArrayView(".lproj").size()));
        if (isLanguage(language))
            languages.append(language);
        if (languages.size() == mostTranslations)
            break;
    }
    // The listing comes in the file system's order; the answer must not.
    languages.sort();
    return languages;
}

} // namespace

DiskBundleReader::DiskBundleReader(const FileSystem &fileSystem, QStringList preferredLanguages, Url mainBundleUrl,
                                   std::stop_token stop)
    : m_fileSystem(fileSystem), m_preferredLanguages(std::move(preferredLanguages)),
      m_mainBundleUrl(std::move(mainBundleUrl)), m_stop(std::move(stop))
{
}

std::optional<Bundle> DiskBundleReader::open(const Url &url) const
{
    if (!m_fileSystem.isDirectory(url))
        return std::nullopt;
    BundleBudget budget(m_stop);
    const auto layout = bundleLayout(m_fileSystem, url);
    auto information = readPropertyListFile(m_fileSystem, layout.information, budget);
    if (!information)
        return std::nullopt;

    const auto developmentRegion = information->value(QStringLiteral("CFBundleDevelopmentRegion")).toString();
    const auto localized = localizedInformation(layout, developmentRegion, budget);
    for (const auto &[key, value] : localized.asKeyValueRange()) {
        if (std::ranges::find(neverLocalized, key) == std::end(neverLocalized))
            information->insert(key, value);
    }
    return Bundle(std::move(*information));
}

// The first translation that has information is used whole: a bundle never shows two languages at once.
QVariantMap DiskBundleReader::localizedInformation(const BundleLayout &layout, const QString &developmentRegion,
                                                   BundleBudget &budget) const
{
    const auto table = readPropertyListFile(m_fileSystem, layout.resources / "InfoPlist.loctable", budget)
                           .value_or(QVariantMap());
    const auto languages = translationsIn(table) + translationFolders(m_fileSystem, layout.resources, budget);
    for (const auto &language : translationsToSearch(languages, m_preferredLanguages, developmentRegion)) {
        const auto compiled = table.value(language);
        if (compiled.typeId() == QMetaType::QVariantMap)
            return compiled.toMap();
        const auto folder = language.isEmpty() ? layout.resources
                                               : layout.resources / QString(language + QStringLiteral(".lproj"));
        if (const auto strings = readPropertyListFile(m_fileSystem, folder / "InfoPlist.strings", budget))
            return *strings;
    }
    return {};
}

QByteArray DiskBundleReader::iconData(const Url &url) const
{
    BundleBudget budget(m_stop);
    return bundlePicture(m_fileSystem, url, budget);
}
