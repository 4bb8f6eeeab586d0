#pragma once

#include <QList>
#include <QLocale>
#include <QMetaEnum>
#include <QObject>
#include <QString>

#include <optional>

/// The enumerations that the whole program shares. The text raw value of a case is its name as it is spelled here,
/// but for `AppLanguage`; raw values double as parts of text keys.
namespace Tarnvale {
Q_NAMESPACE
// In QML a case is named with its enumeration: screens and scopes share names.
Q_CLASSINFO("RegisterEnumClassesUnscoped", "false")

/// Selects the column of the text table. Raw values: "PL", "EN".
enum class AppLanguage { polish, english };
Q_ENUM_NS(AppLanguage)

/// The screens, in the order of the sidebar.
enum class SidebarSelection { dashboard, uninstaller, applications, leftovers, cleaner, mediaFinder, textFinder };
Q_ENUM_NS(SidebarSelection)

/// What a found item is.
enum class ScanItemKind {
    application,
    applicationSupport,
    cache,
    container,
    preference,
    log,
    savedState,
    webData,
    leftover
};
Q_ENUM_NS(ScanItemKind)

/// `exact` when an item's connection to its application is certain, `probable` for a guess.
enum class ScanConfidence { exact, probable };
Q_ENUM_NS(ScanConfidence)

/// The lists of `ScanItem`; a removal works on exactly one.
enum class ScanScope { uninstaller, leftovers, cleaner };
Q_ENUM_NS(ScanScope)

enum class MediaCategory { video, audio, image };
Q_ENUM_NS(MediaCategory)

enum class TextFileCategory { plainText, richText, microsoftOffice, libreOffice, pdf };
Q_ENUM_NS(TextFileCategory)

} // namespace Tarnvale

using namespace Tarnvale;

/// The text raw value of a case.
template <typename Enumeration> QString rawValue(Enumeration value)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enumeration>().valueToKey(static_cast<int>(value)));
}
template <> QString rawValue(AppLanguage language);

/// How dates and names are written and ordered in a language.
QLocale localeOf(AppLanguage language);

/// All cases in the order of their declaration.
template <typename Enumeration> QList<Enumeration> allCases()
{
    const auto meta = QMetaEnum::fromType<Enumeration>();
    QList<Enumeration> cases;
    for (int i = 0; i < meta.keyCount(); ++i)
        cases.append(static_cast<Enumeration>(meta.value(i)));
    return cases;
}

/// The case with this raw value, compared exactly; absent when there is none.
template <typename Enumeration> std::optional<Enumeration> fromRawValue(QStringView text)
{
    for (const auto value : allCases<Enumeration>()) {
        if (rawValue(value) == text)
            return value;
    }
    return std::nullopt;
}
