#include "XmlCursor.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr QStringView commentStart = u"<!--";
constexpr QStringView commentEnd = u"-->";
constexpr QStringView instructionStart = u"<?";
constexpr QStringView instructionEnd = u"?>";
constexpr QStringView documentTypeStart = u"<!DOCTYPE";
constexpr QStringView characterDataStart = u"<![CDATA[";
constexpr QStringView characterDataEnd = u"]]>";

struct Entity
{
    QStringView name;
    char16_t character;
};
constexpr Entity entities[] = {
    {u"lt", u'<'}, {u"gt", u'>'}, {u"amp", u'&'}, {u"quot", u'"'}, {u"apos", u'\''},
};

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

bool isQuote(QChar c)
{
    return c == u'"' || c == u'\'';
}

/// The character that `reference` stands for, "#65" or "#x41"; absent when there is none.
std::optional<char32_t> numberedCharacter(QStringView reference)
{
    const bool isHexadecimal = reference.startsWith(u"#x");
    bool isNumber = false;
    const auto code = reference.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
    if (!isNumber || code > QChar::LastValidCodePoint || QChar::isSurrogate(code))
        return std::nullopt;
    return code;
}

} // namespace

std::optional<XmlCursor::Tag> XmlCursor::takeOpening()
{
    skipUnread();
    if (!m_rest.startsWith(u'<') || m_rest.startsWith(u"</"))
        return std::nullopt;
    const auto endsName = [](QChar c) { return isBlank(c) || c == u'/' || c == u'>'; };
    const auto name = QStringView(m_rest.begin() + 1, std::find_if(m_rest.begin() + 1, m_rest.end(), endsName));
    for (auto position = 1 + name.size(); position < m_rest.size(); ++position) {
        const auto c = m_rest[position];
        if (c == u'>') {
            const bool isEmpty = m_rest[position - 1] == u'/';
            m_rest = m_rest.sliced(position + 1);
            return Tag{name, isEmpty};
        }
        if (isQuote(c)) {
            position = m_rest.indexOf(c, position + 1);
            if (position < 0)
                break;
        }
    }
    m_rest = {};
    return std::nullopt;
}

bool XmlCursor::takeClosing(QStringView name)
{
    skipUnread();
    if (!take(u"</") || !take(name))
        return false;
    m_rest = QStringView(std::find_if_not(m_rest.begin(), m_rest.end(), isBlank), m_rest.end());
    return take(u">");
}

std::optional<QString> XmlCursor::takeText()
{
    QString text;
    while (!m_rest.isEmpty()) {
        const auto *const end =
            std::find_if(m_rest.begin(), m_rest.end(), [](QChar c) { return c == u'<' || c == u'&'; });
        text.append(QStringView(m_rest.begin(), end));
        m_rest = QStringView(end, m_rest.end());
        if (m_rest.startsWith(u'&')) {
            if (!takeReference(text))
                return std::nullopt;
        } else if (m_rest.startsWith(characterDataStart)) {
            if (!takeCharacterData(text))
                return std::nullopt;
        } else if (m_rest.startsWith(commentStart)) {
            skipBehind(commentEnd, commentStart.size());
        } else {
            break;
        }
    }
    return m_rest.isEmpty() ? std::nullopt : std::optional(text);
}

void XmlCursor::skipUnread()
{
    while (!m_rest.isEmpty()) {
        if (isBlank(m_rest.front()))
            m_rest = m_rest.sliced(1);
        else if (m_rest.startsWith(commentStart))
            skipBehind(commentEnd, commentStart.size());
        else if (m_rest.startsWith(instructionStart))
            skipBehind(instructionEnd, instructionStart.size());
        else if (m_rest.startsWith(documentTypeStart))
            skipDocumentType();
        else
            return;
    }
}

void XmlCursor::skipDocumentType()
{
    bool isInSubset = false;
    while (!m_rest.isEmpty()) {
        const auto c = m_rest.front();
        if (m_rest.startsWith(commentStart)) {
            skipBehind(commentEnd, commentStart.size());
        } else if (isQuote(c)) {
            skipBehind(QStringView(&c, 1), 1);
        } else {
            m_rest = m_rest.sliced(1);
            if (c == u'>' && !isInSubset)
                return;
            isInSubset = c == u'[' || (isInSubset && c != u']');
        }
    }
}

void XmlCursor::skipBehind(QStringView end, qsizetype from)
{
    const auto position = m_rest.indexOf(end, from);
    m_rest = position < 0 ? QStringView() : m_rest.sliced(position + end.size());
}

bool XmlCursor::take(QStringView text)
{
    if (!m_rest.startsWith(text))
        return false;
    m_rest = m_rest.sliced(text.size());
    return true;
}

bool XmlCursor::takeCharacterData(QString &text)
{
    const auto start = characterDataStart.size();
    const auto end = m_rest.indexOf(characterDataEnd, start);
    if (end < 0)
        return false;
    text.append(m_rest.sliced(start, end - start));
    m_rest = m_rest.sliced(end + characterDataEnd.size());
    return true;
}

bool XmlCursor::takeReference(QString &text)
{
    constexpr qsizetype longest = 16;
    const auto end = m_rest.first(std::min(longest, m_rest.size())).indexOf(u';');
    if (end < 2)
        return false;
    const auto name = m_rest.sliced(1, end - 1);
    m_rest = m_rest.sliced(end + 1);
    if (name.startsWith(u'#')) {
        const auto character = numberedCharacter(name);
        if (character)
            text.append(QChar::fromUcs4(*character));
        return character.has_value();
    }
    const auto *const entity = std::ranges::find(entities, name, &Entity::name);
    if (entity == std::end(entities))
        return false;
    text.append(QChar(entity->character));
    return true;
}
