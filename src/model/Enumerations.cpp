#include "Enumerations.h"

template <> QString rawValue(AppLanguage language)
{
    return language == AppLanguage::polish ? QStringLiteral("PL") : QStringLiteral("EN");
}
