#pragma once

#include "Enumerations.h"

#include <QString>

#include <concepts>

/// The text under `key` in `language`; the key itself when the table does not have it, so that a misspelt key
/// shows. Safe to call from any thread.
QString localizedText(QStringView key, AppLanguage language);

/// Every key of the table, in the table's order.
QList<QString> allTextKeys();

namespace TextFormat {
/// Cuts the text up to and with its first placeholder off `rest` and answers it with the placeholder replaced by
/// `value`; empty when `rest` has none.
QString filledOnce(QString &rest, const QString &value);

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
template <typename... Arguments> QString filledText(QString format, const Arguments &...arguments)
{
    QString text;
    (text.append(TextFormat::filledOnce(format, TextFormat::argument(arguments))), ...);
    return text + format;
}
