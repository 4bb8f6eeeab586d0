#pragma once

#include "Enumerations.h"

#include <QString>
#include <QStringList>

#include <concepts>

/// The text under `key` in `language`; the key itself when the table does not have it, so that a misspelt key
/// shows. Safe to call from any thread.
QString localizedText(QStringView key, AppLanguage language);

/// Every key of the table, in the table's order.
QList<QString> allTextKeys();

namespace TextFormat {
/// `format` with its placeholders replaced by `values` in order; those that are too many are left out, and a
/// placeholder without a value stays.
QString filled(QStringView format, const QStringList &values);

inline QString argument(std::integral auto number)
{
    return QString::number(number);
}
inline QString argument(const QString &text)
{
    return text;
}
} // namespace TextFormat

/// `format` with its placeholders ("%d" for a number, "%@" for a text) replaced by the arguments in order. What an
/// argument holds is never taken for a placeholder.
template <typename... Arguments> QString filledText(const QString &format, const Arguments &...arguments)
{
    return TextFormat::filled(format, {TextFormat::argument(arguments)...});
}
