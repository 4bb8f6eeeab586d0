#include "StandardTexts.h"

#include <QLibraryInfo>
#include <QTranslator>

#include <map>

namespace {

/// Where Qt's own menu of a text has them from.
constexpr auto context = "QWidgetTextControl";

const char *sourceOf(StandardTexts::Text text)
{
    switch (text) {
    case StandardTexts::Text::cut:
        return "Cu&t";
    case StandardTexts::Text::copy:
        return "&Copy";
    case StandardTexts::Text::paste:
        return "&Paste";
    case StandardTexts::Text::selectAll:
        break;
    }
    return "Select All";
}

/// Empty where it is not installed; read once.
const QTranslator &translator(AppLanguage language)
{
    static std::map<AppLanguage, QTranslator> translators;
    const auto [entry, isNew] = translators.try_emplace(language);
    if (isNew) {
        const auto file = QStringLiteral("qtbase_") + rawValue(language).toLower();
        // Where there is none, all answers are empty.
        (void)entry->second.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
    return entry->second;
}

} // namespace

QString StandardTexts::of(Text text, AppLanguage language)
{
    auto words = translator(language).translate(context, sourceOf(text));
    if (words.isEmpty())
        words = QString::fromLatin1(sourceOf(text));
    return words.remove(u'&');
}
