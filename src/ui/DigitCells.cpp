#include "DigitCells.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>

void DigitCells::setQuickDocument(QQuickTextDocument *document)
{
    m_quickDocument = document;
    setDocument(document ? document->textDocument() : nullptr);
    Q_EMIT changed();
}

void DigitCells::setFont(const QFont &font)
{
    m_font = font;
    rehighlight();
    Q_EMIT changed();
}

void DigitCells::highlightBlock(const QString &text)
{
    const QFontMetricsF metrics(m_font);
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    std::array<qreal, 10> widths;
    for (size_t digit = 0; digit < widths.size(); ++digit)
        widths[digit] = metrics.horizontalAdvance(QChar(u'0' + static_cast<char16_t>(digit)));
    const auto cell = *std::ranges::max_element(widths);
    // What a digit's cell leaves free on either side of it.
    const auto around = [&](qsizetype at) {
        const bool isThere = at < text.size() && isDigit(text.at(at));
        return isThere ? (cell - widths[static_cast<size_t>(text.at(at).unicode() - u'0')]) / 2 : 0;
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        QTextCharFormat format;
        format.setFontKerning(false);
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(around(at) + around(at + 1));
        setFormat(static_cast<int>(at), 1, format);
    }
}
