#include "XmlPropertyListReader.h"

#include <QDateTime>

#include <algorithm>
#include <iterator>
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

} // namespace

std::optional<QVariant> XmlPropertyListReader::read()
{
    constexpr QStringView plist = u"plist";
    const auto first = m_xml.takeOpening();
    if (!first || first->name != plist)
        return first ? value(*first, 1) : std::nullopt;
    const auto root = first->isEmpty ? std::nullopt : m_xml.takeOpening();
    auto list = root ? value(*root, 1) : std::nullopt;
    return m_xml.takeClosing(plist) ? list : std::nullopt;
}

std::optional<QVariant> XmlPropertyListReader::value(const XmlCursor::Tag &tag, int depth)
{
    if (!m_budget.spendValue(depth))
        return std::nullopt;
    if (tag.name == u"dict")
        return dictionary(tag, depth);
    if (tag.name == u"array")
        return list(tag, depth);
    const auto *const scalar = std::ranges::find(scalars, tag.name, &Scalar::tag);
    auto content = scalar == std::end(scalars) ? std::nullopt : text(tag);
    return content ? scalar->parse(std::move(*content)) : std::nullopt;
}

std::optional<QVariant> XmlPropertyListReader::list(const XmlCursor::Tag &tag, int depth)
{
    QVariantList list;
    while (const auto next = tag.isEmpty ? std::nullopt : m_xml.takeOpening()) {
        auto element = value(*next, depth + 1);
        if (!element)
            return std::nullopt;
        list.append(std::move(*element));
    }
    return tag.isEmpty || m_xml.takeClosing(tag.name) ? std::optional(QVariant(list)) : std::nullopt;
}

std::optional<QVariant> XmlPropertyListReader::dictionary(const XmlCursor::Tag &tag, int depth)
{
    QVariantMap dictionary;
    while (const auto next = tag.isEmpty ? std::nullopt : m_xml.takeOpening()) {
        const auto key = next->name == u"key" ? text(*next) : std::nullopt;
        const auto valueTag = key ? m_xml.takeOpening() : std::nullopt;
        auto element = valueTag ? value(*valueTag, depth + 1) : std::nullopt;
        if (!element || !m_budget.spendKey(key->size()))
            return std::nullopt;
        dictionary.insert(*key, *element);
    }
    return tag.isEmpty || m_xml.takeClosing(tag.name) ? std::optional(QVariant(dictionary)) : std::nullopt;
}

std::optional<QString> XmlPropertyListReader::text(const XmlCursor::Tag &tag)
{
    if (tag.isEmpty)
        return QString();
    auto text = m_xml.takeText();
    return m_xml.takeClosing(tag.name) ? text : std::nullopt;
}
