#include "Figures.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

qreal widthOfDigits(const QFontMetricsF &metrics)
{
    qreal width = 0;
    for (auto digit = u'0'; digit <= u'9'; ++digit)
        width = std::max(width, metrics.horizontalAdvance(QChar(digit)));
    return width;
}

/// Sets `text` from the left to the right, a digit or what stands between digits at a time: `place` is told what and where,
/// the middle of its cell for a digit. Where it ends.
template <typename Place>
qreal setOut(const QString &text, const QFontMetricsF &metrics, Place place)
{
    const auto cell = widthOfDigits(metrics);
    qreal x = 0;
    for (qsizetype at = 0; at < text.size();) {
        const bool isFigure = isDigit(text.at(at));
        auto end = at + 1;
        while (!isFigure && end < text.size() && !isDigit(text.at(end)))
            ++end;
        const auto piece = text.mid(at, end - at);
        const auto width = metrics.horizontalAdvance(piece);
        place(piece, isFigure ? x + (cell - width) / 2 : x);
        x += isFigure ? cell : width;
        at = end;
    }
    return x;
}

} // namespace

Figures::Figures(QQuickItem *parent) : PixelAlignedPicture(parent)
{
    connect(this, &Figures::changed, this, &Figures::layOut);
}

void Figures::layOut()
{
    const QFontMetricsF metrics(m_font);
    const auto width = setOut(m_text, metrics, [](const QString &, qreal) {});
    setImplicitSize(std::ceil(width), std::ceil(metrics.height()));
    setBaselineOffset(metrics.ascent());
    redraw();
}

QString Figures::description() const
{
    return QStringLiteral("figures/%1/%2/%3").arg(m_color.rgba()).arg(m_font.toString(), m_text);
}

QImage Figures::draw(QSize size, qreal pixelRatio) const
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(m_font);
    painter.setPen(m_color);
    const QFontMetricsF metrics(m_font);
    setOut(m_text, metrics, [&](const QString &piece, qreal x) {
        painter.drawText(QPointF(x, metrics.ascent()), piece);
    });
    return image;
}
