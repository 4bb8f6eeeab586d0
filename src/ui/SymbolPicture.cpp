#include "SymbolPicture.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace {
const auto folder = QStringLiteral(":/qt/qml/Tarnvale/symbols/");
const auto extension = QStringLiteral(".svg");

// Every drawing names its stroke once, on its outermost element.
constexpr QByteArrayView drawnStroke = "stroke-width=\"1.5\"";

struct Weight
{
    int fontWeight;
    QByteArrayView stroke;
};
constexpr Weight weights[] = {
    {QFont::Normal, "stroke-width=\"1.5\""},
    {QFont::Medium, "stroke-width=\"1.7\""},
    {QFont::DemiBold, "stroke-width=\"2\""},
};

QByteArrayView strokeFor(int fontWeight)
{
    auto stroke = weights[0].stroke;
    for (const auto &weight : weights) {
        if (fontWeight >= weight.fontWeight)
            stroke = weight.stroke;
    }
    return stroke;
}
} // namespace

SymbolPicture::SymbolPicture(QQuickItem *parent) : PixelAlignedPicture(parent)
{
    connect(this, &SymbolPicture::changed, this, &SymbolPicture::redraw);
}

QString SymbolPicture::description() const
{
    return QStringLiteral("symbol/%1/%2/%3").arg(m_name).arg(m_weight).arg(m_color.rgba());
}

QImage SymbolPicture::draw(QSize size, qreal) const
{
    return m_name.isEmpty() ? QImage() : drawn(m_name, std::min(size.width(), size.height()), m_weight, m_color);
}

QStringList SymbolPicture::names()
{
    auto names = QDir(folder).entryList({u'*' + extension}, QDir::Files, QDir::Name);
    for (auto &name : names)
        name.chop(extension.size());
    return names;
}

QImage SymbolPicture::drawn(const QString &name, int side, int weight, const QColor &color)
{
    QFile file(folder + name + extension);
    if (!file.open(QFile::ReadOnly)) {
        qWarning("There is no drawing of the symbol \"%ls\".", qUtf16Printable(name));
        return {};
    }
    const auto stroke = strokeFor(weight);
    QSvgRenderer drawing(file.readAll().replace(drawnStroke, stroke));

    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, side, side));
    // The drawing is black: what it covers is what takes the colour.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}
