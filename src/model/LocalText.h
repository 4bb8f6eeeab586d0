#pragma once

#include "Enumerations.h"

#include <QStringView>

/// A text in every language of the interface: one column a language. A row that misses one doesn't compile.
struct LocalText
{
    QStringView polish;
    QStringView english;

    constexpr QStringView in(AppLanguage language) const
    {
        switch (language) {
        case AppLanguage::polish:
            return polish;
        case AppLanguage::english:
            return english;
        }
        Q_UNREACHABLE();
    }
};
