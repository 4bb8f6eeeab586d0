#include "KeyedText.h"

namespace {

/// Cuts the first line off `text`.
QByteArrayView takeLine(QByteArrayView &text)
{
    const auto end = text.indexOf('\n');
    const auto line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return line;
}

/// Either quotes keep what they enclose; a backslash keeps the byte behind it, but not inside of single quotes.
QByteArray unquoted(QByteArrayView value)
{
    QByteArray plain;
    char quote = '\0';
    for (qsizetype i = 0; i < value.size(); ++i) {
        const auto byte = value[i];
        if (byte == quote && quote != '\0')
            quote = '\0';
        else if (quote == '\0' && (byte == '"' || byte == '\''))
            quote = byte;
        else if (byte == '\\' && quote != '\'' && i + 1 < value.size())
            plain.append(value[++i]);
        else
            plain.append(byte);
    }
    return plain;
}

} // namespace

std::optional<QByteArrayView> colonValue(QByteArrayView text, QByteArrayView key)
{
    while (!text.isEmpty()) {
        const auto line = takeLine(text);
        const auto colon = line.indexOf(':');
        if (colon >= 0 && line.first(colon).trimmed() == key)
            return line.sliced(colon + 1).trimmed();
    }
    return std::nullopt;
}

std::optional<QString> assignedValue(QByteArrayView text, QByteArrayView key)
{
    std::optional<QString> value;
    while (!text.isEmpty()) {
        const auto line = takeLine(text).trimmed();
        if (line.startsWith(key) && line.sliced(key.size()).startsWith('='))
            value = QString::fromUtf8(unquoted(line.sliced(key.size() + 1))).trimmed();
    }
    return value && value->isEmpty() ? std::nullopt : value;
}
