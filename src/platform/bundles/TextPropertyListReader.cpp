#include "TextPropertyListReader.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

// What the bytes from 0x80 on, written in octal, stand for: the encoding of the system that the form comes from.
constexpr char16_t nextStep[] = u"\u00a0ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏ"
                                u"ÐÑÒÓÔÕÖÙÚÛÜÝÞµ×÷"
                                u"©¡¢£⁄¥ƒ§¤’“«‹›ﬁﬂ"
                                u"®–†‡·¦¶•‚„”»…‰¬¿"
                                u"¹ˋ´ˆ˜¯˘˙¨²˚¸³˝˛ˇ"
                                u"—±¼½¾àáâãäåçèéêë"
                                u"ìÆíªîïðñŁØŒºòóôõ"
                                u"öæùúûıüýłøœßþÿ\ufffd\ufffd";
static_assert(std::size(nextStep) == 128 + 1);

struct Escape
{
    char16_t letter;
    char16_t character;
};
constexpr Escape escapes[] = {
    {u'a', u'\a'}, {u'b', u'\b'}, {u'f', u'\f'}, {u'n', u'\n'}, {u'r', u'\r'}, {u't', u'\t'}, {u'v', u'\v'},
};

bool isBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u2028' || c == u'\u2029';
}

bool mayStandUnquoted(QChar c)
{
    constexpr QStringView others = u"_$/:.-";
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || others.contains(c);
}

/// -1 when `c` is no digit to the base of `base`.
int digitValue(QChar c, int base)
{
    const int value = c >= u'0' && c <= u'9'   ? c.unicode() - u'0'
                      : c >= u'a' && c <= u'f' ? c.unicode() - u'a' + 10
                      : c >= u'A' && c <= u'F' ? c.unicode() - u'A' + 10
                                               : -1;
    return value < base ? value : -1;
}

} // namespace

std::optional<QVariant> TextPropertyListReader::read()
{
    if (isReadToTheEnd())
        return QVariantMap();
    const auto start = m_position;
    auto root = value(1);
    if (!root)
        return std::nullopt;
    if (isReadToTheEnd())
        return root;
    // Only the first key of a strings file has anything behind it.
    if (root->typeId() != QMetaType::QString)
        return std::nullopt;
    m_position = start;
    return pairs(QChar(), 1);
}

std::optional<QVariant> TextPropertyListReader::value(int depth)
{
    if (!m_budget.spendValue(depth))
        return std::nullopt;
    if (take(u'{')) {
        auto dictionary = pairs(u'}', depth);
        return take(u'}') ? dictionary : std::nullopt;
    }
    if (take(u'('))
        return list(depth);
    if (take(u'<'))
        return bytes();
    const auto text = string();
    return text ? std::optional(QVariant(*text)) : std::nullopt;
}

std::optional<QVariant> TextPropertyListReader::list(int depth)
{
    QVariantList list;
    while (next() != u')') {
        auto element = value(depth + 1);
        if (!element)
            return std::nullopt;
        list.append(std::move(*element));
        if (!take(u','))
            break;
    }
    return take(u')') ? std::optional(QVariant(list)) : std::nullopt;
}

std::optional<QVariant> TextPropertyListReader::pairs(QChar closing, int depth)
{
    QVariantMap dictionary;
    for (auto c = next(); !atEnd() && c != closing; c = next()) {
        const auto key = string();
        if (!key)
            return std::nullopt;
        // "key;" is short for "key = key;".
        auto element = take(u'=')                       ? value(depth + 1)
                       : m_budget.spendValue(depth + 1) ? std::optional(QVariant(*key))
                                                        : std::nullopt;
        if (!element || !take(u';') || !m_budget.spendKey(key->size()))
            return std::nullopt;
        dictionary.insert(*key, *element);
    }
    return dictionary;
}

std::optional<QVariant> TextPropertyListReader::bytes()
{
    QByteArray hexadecimal;
    for (auto c = next(); digitValue(c, 16) >= 0; c = next()) {
        hexadecimal.append(c.toLatin1());
        ++m_position;
    }
    if (hexadecimal.size() % 2 != 0 || !take(u'>'))
        return std::nullopt;
    return QByteArray::fromHex(hexadecimal);
}

std::optional<QString> TextPropertyListReader::string()
{
    const auto c = next();
    if (c == u'"' || c == u'\'')
        return quotedString();
    const auto start = m_position;
    while (!atEnd() && mayStandUnquoted(m_text[m_position]))
        ++m_position;
    return m_position > start ? std::optional(m_text.sliced(start, m_position - start).toString()) : std::nullopt;
}

std::optional<QString> TextPropertyListReader::quotedString()
{
    const auto quote = m_text[m_position++];
    QString text;
    while (!atEnd()) {
        const auto c = m_text[m_position++];
        if (c == quote)
            return text;
        if (c != u'\\')
            text.append(c);
        else if (!atEnd())
            text.append(QChar(escapedCharacter()));
    }
    return std::nullopt;
}

char16_t TextPropertyListReader::escapedCharacter()
{
    const auto c = m_text[m_position];
    if (digitValue(c, 8) >= 0) {
        const auto byte = static_cast<unsigned char>(digits(3, 8));
        return byte < 0x80 ? byte : nextStep[byte - 0x80];
    }
    ++m_position;
    if (c == u'U')
        return digits(4, 16);
    const auto *const escape = std::ranges::find(escapes, c.unicode(), &Escape::letter);
    return escape == std::end(escapes) ? c.unicode() : escape->character;
}

char16_t TextPropertyListReader::digits(int most, int base)
{
    int number = 0;
    for (int i = 0; i < most && !atEnd() && digitValue(m_text[m_position], base) >= 0; ++i)
        number = number * base + digitValue(m_text[m_position++], base);
    return static_cast<char16_t>(number);
}

QChar TextPropertyListReader::next()
{
    while (!atEnd()) {
        const auto rest = m_text.sliced(m_position);
        if (isBlank(rest.front())) {
            ++m_position;
        } else if (rest.startsWith(u"//")) {
            while (!atEnd() && m_text[m_position] != u'\n' && m_text[m_position] != u'\r')
                ++m_position;
        } else if (rest.startsWith(u"/*")) {
            const auto end = rest.indexOf(u"*/", 2);
            m_position = end < 0 ? m_text.size() : m_position + end + 2;
        } else {
            return rest.front();
        }
    }
    return {};
}

/// Whether nothing but blanks and comments is left.
bool TextPropertyListReader::isReadToTheEnd()
{
    next();
    return atEnd();
}

bool TextPropertyListReader::take(QChar character)
{
    if (next() != character)
        return false;
    ++m_position;
    return true;
}
