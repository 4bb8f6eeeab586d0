#include "DerEntitlementsReader.h"

#include <utility>

namespace {

enum Tag : unsigned char {
    boolean = 0x01,
    integer = 0x02,
    octets = 0x04,
    utf8Text = 0x0c,
    sequence = 0x30,
    // Dictionaries were sets of pairs at first.
    set = 0x31,
    versioned = 0x70,
    dictionaryTag = 0xb0
};

std::optional<QVariant> integerValue(QByteArrayView bytes)
{
    if (bytes.isEmpty() || bytes.size() > 8)
        return std::nullopt;
    auto number = static_cast<quint64>(static_cast<qint64>(static_cast<signed char>(bytes.front())));
    for (const char byte : bytes.sliced(1))
        number = number << 8 | static_cast<unsigned char>(byte);
    return QVariant(static_cast<qint64>(number));
}

} // namespace

std::optional<QVariantMap> DerEntitlementsReader::read()
{
    auto rest = m_data;
    auto root = take(rest);
    if (root && root->tag == versioned) {
        rest = root->content;
        const auto version = take(rest);
        if (!version || version->tag != integer)
            return std::nullopt;
        root = take(rest);
    }
    if (!root || (root->tag != dictionaryTag && root->tag != set))
        return std::nullopt;
    const auto entitlements = value(*root, 1);
    return entitlements ? std::optional(entitlements->toMap()) : std::nullopt;
}

std::optional<DerEntitlementsReader::Element> DerEntitlementsReader::take(QByteArrayView &bytes)
{
    if (bytes.size() < 2)
        return std::nullopt;
    const auto tag = static_cast<unsigned char>(bytes[0]);
    quint64 length = static_cast<unsigned char>(bytes[1]);
    bytes = bytes.sliced(2);
    if (length >= 0x80) {
        const auto count = static_cast<qsizetype>(length & 0x7f);
        if (count < 1 || count > 8 || count > bytes.size())
            return std::nullopt;
        length = 0;
        for (const char byte : bytes.first(count))
            length = length << 8 | static_cast<unsigned char>(byte);
        bytes = bytes.sliced(count);
    }
    if (length > static_cast<quint64>(bytes.size()))
        return std::nullopt;
    const auto content = bytes.first(static_cast<qsizetype>(length));
    bytes = bytes.sliced(content.size());
    return Element{tag, content};
}

std::optional<QVariant> DerEntitlementsReader::value(const Element &element, int depth)
{
    if (!m_budget.spendValue(depth))
        return std::nullopt;
    switch (element.tag) {
    case boolean:
        return element.content.size() == 1 ? std::optional(QVariant(element.content[0] != 0)) : std::nullopt;
    case integer:
        return integerValue(element.content);
    case octets:
        return QVariant(element.content.toByteArray());
    case utf8Text:
        return QVariant(QString::fromUtf8(element.content));
    case sequence:
        return list(element.content, depth);
    case set:
    case dictionaryTag:
        return dictionary(element.content, depth);
    default:
        return std::nullopt;
    }
}

std::optional<QVariant> DerEntitlementsReader::list(QByteArrayView elements, int depth)
{
    QVariantList list;
    while (!elements.isEmpty()) {
        const auto element = take(elements);
        auto read = element ? value(*element, depth + 1) : std::nullopt;
        if (!read)
            return std::nullopt;
        list.append(std::move(*read));
    }
    return list;
}

std::optional<QVariant> DerEntitlementsReader::dictionary(QByteArrayView pairs, int depth)
{
    QVariantMap dictionary;
    while (!pairs.isEmpty()) {
        const auto pair = take(pairs);
        if (!pair || pair->tag != sequence)
            return std::nullopt;
        auto rest = pair->content;
        const auto key = take(rest);
        const auto element = take(rest);
        if (!key || key->tag != utf8Text || !element)
            return std::nullopt;
        auto read = value(*element, depth + 1);
        if (!read)
            return std::nullopt;
        dictionary.insert(QString::fromUtf8(key->content), *read);
    }
    return dictionary;
}
