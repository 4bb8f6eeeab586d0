#include "SymbolProvider.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFont>
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

SymbolProvider::SymbolProvider() : QQuickImageProvider(Image) { }

QImage SymbolProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const auto parts = id.split(u'/');
    if (parts.size() != 3)
        return {};
    const auto side = std::max(requestedSize.width(), requestedSize.height());
    auto image = draw(parts[0], side > 0 ? side : 24, parts[1].toInt(), QColor(u'#' + parts[2]));
    *size = image.size();
    return image;
}

QStringList SymbolProvider::names()
{
    auto names = QDir(folder).entryList({u'*' + extension}, QDir::Files, QDir::Name);
    for (auto &name : names)
        name.chop(extension.size());
    return names;
}

QImage SymbolProvider::draw(const QString &name, int side, int weight, const QColor &color)
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
