#include "Presentation.h"

#include "ByteCount.h"
#include "DashboardPresentation.h"
#include "DeletionRequest.h"
#include "LocalText.h"
#include "SidebarSection.h"
#include "Text.h"

#include <algorithm>

namespace {

template <typename Category> QVariantList choices(QStringView keyPrefix)
{
    QVariantList list;
    for (const auto category : allCases<Category>())
        list.append(QVariant::fromValue(
            CategoryChoice{static_cast<int>(category), keyPrefix.toString() + rawValue(category)}));
    return list;
}

struct KindName
{
    ScanItemKind kind;
    LocalText name;
};

constexpr KindName kindNames[] = {
    {ScanItemKind::application, {u"aplikacja", u"application"}},
    {ScanItemKind::applicationSupport, {u"dane aplikacji", u"application data"}},
    {ScanItemKind::cache, {u"pamięć podręczna", u"cache"}},
    {ScanItemKind::container, {u"kontener", u"container"}},
    {ScanItemKind::preference, {u"preferencje", u"preferences"}},
    {ScanItemKind::log, {u"log", u"log"}},
    {ScanItemKind::savedState, {u"zapisany stan", u"saved state"}},
    {ScanItemKind::webData, {u"dane witryn", u"web data"}},
    {ScanItemKind::leftover, {u"pozostałość", u"leftover"}},
};

/// What a placeholder is replaced by.
QString argumentText(const QVariant &argument)
{
    return argument.typeId() == QMetaType::QString ? argument.toString() : QString::number(argument.toLongLong());
}

} // namespace

QVariantList Presentation::sections()
{
    QVariantList list;
    for (const auto &section : sidebarSections())
        list.append(QVariant::fromValue(section));
    return list;
}

QVariantList Presentation::languages()
{
    QVariantList list;
    for (const auto language : allCases<AppLanguage>())
        list.append(QVariant::fromValue(LanguageChoice{language, rawValue(language)}));
    return list;
}

QVariantList Presentation::mediaCategories()
{
    return choices<MediaCategory>(u"media_");
}

QVariantList Presentation::textFileCategories()
{
    return choices<TextFileCategory>(u"text_");
}

QVariant Presentation::section(SidebarSelection selection)
{
    const auto &sections = sidebarSections();
    const auto section = std::ranges::find(sections, selection, &SidebarSection::selection);
    return section == sections.end() ? QVariant() : QVariant::fromValue(*section);
}

QString Presentation::text(const QString &key, AppLanguage language)
{
    return localizedText(key, language);
}

QString Presentation::kindText(const QString &kindKey, AppLanguage language)
{
    const auto kind = fromRawValue<ScanItemKind>(kindKey);
    return kind ? std::ranges::find(kindNames, *kind, &KindName::kind)->name.in(language).toString()
                : localizedText(kindKey, language);
}

QString Presentation::filledText(const QString &key, AppLanguage language, const QVariantList &arguments)
{
    QStringList texts;
    for (const auto &argument : arguments)
        texts.append(argumentText(argument));
    return TextFormat::filled(localizedText(key, language), texts);
}

QString Presentation::copyPathText(AppLanguage language)
{
    return LocalText{u"Kopiuj ścieżkę", u"Copy Path"}.in(language).toString();
}

QString Presentation::sizeText(qint64 bytes)
{
    return formattedByteCount(bytes, ByteCountStyle::file);
}

QString Presentation::confirmationMessage(const QVariant &request, AppLanguage language)
{
    if (request.metaType() != QMetaType::fromType<DeletionRequest>())
        return {};
    const auto items = request.value<DeletionRequest>().items;
    qint64 bytes = 0;
    for (const auto &item : items)
        bytes += item.sizeBytes;
    return ::filledText(localizedText(u"confirm_message", language), items.size(), sizeText(bytes));
}

QVariant Presentation::dashboard(const QVariant &snapshot, AppLanguage language)
{
    if (snapshot.metaType() != QMetaType::fromType<DashboardSnapshot>())
        return {};
    return QVariant::fromValue(DashboardPresentation(snapshot.value<DashboardSnapshot>(), language));
}
