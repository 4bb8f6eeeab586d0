#include "Enumerations.h"

#include "LocalText.h"

template <> QString rawValue(AppLanguage language)
{
    return LocalText{u"PL", u"EN"}.in(language).toString();
}

QLocale localeOf(AppLanguage language)
{
    return QLocale(LocalText{u"pl", u"en"}.in(language).toString());
}
