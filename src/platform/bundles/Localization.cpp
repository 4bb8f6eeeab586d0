#include "Localization.h"

#include <algorithm>
#include <vector>

namespace {

struct Spelling
{
    QStringView old;
    QStringView tag;
};
// What bundles call a language besides its tag. Compared without case, "_" being "-".
constexpr Spelling spellings[] = {
    {u"arabic", u"ar"},
    {u"catalan", u"ca"},
    {u"croatian", u"hr"},
    {u"czech", u"cs"},
    {u"danish", u"da"},
    {u"dutch", u"nl"},
    {u"english", u"en"},
    {u"finnish", u"fi"},
    {u"french", u"fr"},
    {u"german", u"de"},
    {u"greek", u"el"},
    {u"hebrew", u"he"},
    {u"hungarian", u"hu"},
    {u"italian", u"it"},
    {u"japanese", u"ja"},
    {u"korean", u"ko"},
    {u"norwegian", u"nb"},
    {u"polish", u"pl"},
    {u"portuguese", u"pt"},
    {u"romanian", u"ro"},
    {u"russian", u"ru"},
    {u"slovak", u"sk"},
    {u"spanish", u"es"},
    {u"swedish", u"sv"},
    {u"thai", u"th"},
    {u"turkish", u"tr"},
    {u"ukrainian", u"uk"},
    {u"iw", u"he"},
    {u"no", u"nb"},
    // Chinese is told apart by its script, which these leave out.
    {u"zh", u"zh-hans"},
    {u"zh-cn", u"zh-hans-cn"},
    {u"zh-sg", u"zh-hans-sg"},
    {u"zh-hk", u"zh-hant-hk"},
    {u"zh-mo", u"zh-hant-mo"},
    {u"zh-tw", u"zh-hant-tw"},
};

struct Language
{
    /// The language, and its script where that is named.
    QString written;
    /// Empty when none is named.
    QString region;
};

Language parsed(const QString &name)
{
    QString tag = name.toLower().replace(u'_', u'-');
    for (const auto &spelling : spellings) {
        if (tag == spelling.old) {
            tag = spelling.tag.toString();
            break;
        }
    }
    const auto parts = QStringView(tag).split(u'-');
    Language language{parts.front().toString(), {}};
    for (const auto part : parts.sliced(1)) {
        if (part.size() == 4)
            language.written += u'-' + part.toString();
        else if (language.region.isEmpty())
            language.region = part.toString();
    }
    return language;
}

// How well a translation serves who wants another one; a smaller number is better.
enum class Closeness { same, withoutRegion, otherRegion, none };

Closeness closeness(const Language &translation, const Language &wanted)
{
    if (translation.written != wanted.written)
        return Closeness::none;
    if (translation.region == wanted.region)
        return Closeness::same;
    return translation.region.isEmpty() ? Closeness::withoutRegion : Closeness::otherRegion;
}

/// Those of `available` that serve who wants `wanted`, best first. Another region's counts only when nothing
/// closer is there.
QStringList translationsFor(const QStringList &available, const QString &wanted)
{
    struct Translation
    {
        QString name;
        Closeness closeness;
    };
    std::vector<Translation> translations;
    for (const auto &name : available) {
        const auto distance = closeness(parsed(name), parsed(wanted));
        if (distance != Closeness::none)
            translations.push_back({name, distance});
    }
    std::ranges::stable_sort(translations, {}, &Translation::closeness);

    QStringList names;
    for (const auto &[name, distance] : translations) {
        if (names.isEmpty() || distance != Closeness::otherRegion)
            names.append(name);
    }
    return names;
}

} // namespace

QStringList translationsToSearch(const QStringList &available, const QStringList &preferred,
                                 const QString &developmentRegion)
{
    QStringList names;
    for (const auto &language : preferred) {
        names = translationsFor(available, language);
        if (!names.isEmpty())
            break;
    }
    names += translationsFor(available, developmentRegion);
    names += QString();
    if (const auto base = QStringLiteral("Base"); available.contains(base))
        names += base;
    names += translationsFor(available, QStringLiteral("en"));
    names += available;
    names.removeDuplicates();
    return names;
}
