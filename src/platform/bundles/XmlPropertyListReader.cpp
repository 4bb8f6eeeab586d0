#include "XmlPropertyListReader.h"

#include <QDateTime>

#include <limits>
#include <utility>

namespace {

std::optional<QVariant> integer(QString &&text)
{
    auto digits = QStringView(text).trimmed();
    const bool isNegative = digits.startsWith(u'-');
    if (isNegative || digits.startsWith(u'+'))
        digits = digits.sliced(1);
    const bool isHexadecimal = digits.startsWith(u"0x", Qt::CaseInsensitive);
    if (isHexadecimal)
        digits = digits.sliced(2);
    if (digits.isEmpty() || digits.startsWith(u'-') || digits.startsWith(u'+'))
        return std::nullopt;
    bool isNumber = false;
    const quint64 magnitude = digits.toULongLong(&isNumber, isHexadecimal ? 16 : 10);
    constexpr quint64 largest = std::numeric_limits<qint64>::max();
    if (!isNumber || (isNegative && magnitude > largest + 1))
        return std::nullopt;
    if (isNegative)
        return QVariant(static_cast<qint64>(0 - magnitude));
    return magnitude > largest ? QVariant(magnitude) : QVariant(static_cast<qint64>(magnitude));
}

std::optional<QVariant> real(QString &&text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(QVariant(number)) : std::nullopt;
}

std::optional<QVariant> date(QString &&text)
{
    const auto date = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    return date.isValid() ? std::optional(QVariant(date.toUTC())) : std::nullopt;
}

std::optional<QVariant> bytes(QString &&text)
{
    // In place: they may be most of a large file.
    return QVariant(QByteArray::fromBase64Encoding(std::move(text).toLatin1()).decoded);
}

std::optional<QVariant> string(QString &&text)
{
    return QVariant(text);
}

struct Scalar
{
    QStringView tag;
    std::optional<QVariant> (*parse)(QString &&text);
};
constexpr Scalar scalars[] = {
    {u"string", string},
    {u"integer", integer},
    {u"real", real},
    {u"date", date},
    {u"data", bytes},
    {u"true", [](QString &&) { return std::optional(QVariant(true)); }},
    {u"false", [](QString &&) { return std::optional(QVariant(false)); }},
};

/// Where the text goes on behind the declaration of its version and encoding; the beginning when it has none.
qsizetype declarationEnd(QByteArrayView text)
{
    if (!text.startsWith("<?xml"))
        return 0;
    const auto end = text.indexOf("?>");
    return end < 0 ? 0 : end + 2;
}

} // namespace

XmlPropertyListReader::XmlPropertyListReader(const QByteArray &text)
{
    m_text.setData(text);
    m_text.open(QBuffer::ReadOnly);
    m_text.seek(declarationEnd(text));
    m_xml.setDevice(&m_text);
}

std::optional<QVariant> XmlPropertyListReader::read()
{
    if (!m_xml.readNextStartElement())
        return std::nullopt;
    if (m_xml.name() != u"plist")
        return value(1);
    if (!m_xml.readNextStartElement())
        return std::nullopt;
    auto root = value(1);
    if (m_xml.readNextStartElement() || m_xml.hasError())
        return std::nullopt;
    return root;
}

std::optional<QVariant> XmlPropertyListReader::value(int depth)
{
    if (!m_budget.spend(depth))
        return std::nullopt;
    if (m_xml.name() == u"dict")
        return dictionary(depth);
    if (m_xml.name() == u"array")
        return list(depth);
    for (const auto &scalar : scalars) {
        if (m_xml.name() == scalar.tag) {
            auto text = m_xml.readElementText();
            return m_xml.hasError() ? std::nullopt : scalar.parse(std::move(text));
        }
    }
    return std::nullopt;
}

std::optional<QVariant> XmlPropertyListReader::list(int depth)
{
    QVariantList list;
    while (m_xml.readNextStartElement()) {
        auto element = value(depth + 1);
        if (!element)
            return std::nullopt;
        list.append(std::move(*element));
    }
    return m_xml.hasError() ? std::nullopt : std::optional(QVariant(list));
}

std::optional<QVariant> XmlPropertyListReader::dictionary(int depth)
{
    QVariantMap dictionary;
    while (m_xml.readNextStartElement()) {
        if (m_xml.name() != u"key")
            return std::nullopt;
        const auto key = m_xml.readElementText();
        if (!m_xml.readNextStartElement())
            return std::nullopt;
        auto element = value(depth + 1);
        if (!element)
            return std::nullopt;
        dictionary.insert(key, *element);
    }
    return m_xml.hasError() ? std::nullopt : std::optional(QVariant(dictionary));
}
