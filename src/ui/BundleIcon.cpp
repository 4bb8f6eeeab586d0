#include "BundleIcon.h"

#include <QBuffer>
#include <QColor>
#include <QImageReader>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

constexpr auto largestPicture = 32; // MiB

// The pictures that an .icns file may hold, by the type of its element.
struct IcnsPicture
{
    const char *type;
    int side;
};
constexpr IcnsPicture icnsPictures[] = {
    // clang-format off
    {"icp4", 16}, {"icp5", 32}, {"icp6", 64}, {"ic04", 16}, {"ic05", 32}, {"ic07", 128}, {"ic08", 256},
    {"ic09", 512}, {"ic10", 1024}, {"ic11", 32}, {"ic12", 64}, {"ic13", 256}, {"ic14", 512},
    {"is32", 16}, {"il32", 32}, {"ih32", 48}, {"it32", 128}, {"ics8", 16}, {"icl8", 32}, {"ich8", 48},
    // clang-format on
};

int sideOfPicture(const QByteArray &type)
{
    const auto *picture = std::ranges::find(icnsPictures, type, [](const IcnsPicture &each) { return each.type; });
    return picture == std::end(icnsPictures) ? 0 : picture->side;
}

// The smallest picture that needs no enlarging, else the largest; those of a kind that cannot be read are passed
// over.
QImage icnsPicture(QBuffer &data, int side)
{
    struct Candidate
    {
        int index;
        int side;
    };
    std::vector<Candidate> candidates;
    QImageReader reader(&data, "icns");
    for (int i = 0; i < reader.imageCount(); ++i) {
        if (reader.jumpToImage(i))
            candidates.push_back({i, sideOfPicture(reader.subType())});
    }
    std::ranges::stable_sort(candidates, [side](const Candidate &a, const Candidate &b) {
        const auto isEnough = a.side >= side;
        if (isEnough != (b.side >= side))
            return isEnough;
        return isEnough ? a.side < b.side : a.side > b.side;
    });
    for (const auto &candidate : candidates) {
        QImage image;
        if (reader.jumpToImage(candidate.index) && reader.read(&image))
            return image;
    }
    return {};
}

QImage pngPicture(QBuffer &data)
{
    QImageReader reader(&data, "png");
    return reader.read();
}

QPainterPath roundedSquare(int side)
{
    constexpr auto roundness = 0.225;
    QPainterPath path;
    path.addRoundedRect(0, 0, side, side, roundness * side, roundness * side);
    return path;
}

QImage transparentSquare(int side)
{
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    return square;
}

// From the top of a tile to its bottom; white letters are readable on each.
struct Tint
{
    QRgb top;
    QRgb bottom;
};
constexpr Tint tints[] = {
    {0xff5e9bff, 0xff2563d9}, {0xff4cc38a, 0xff1d8a57}, {0xffb58bff, 0xff7a48d6}, {0xffff9d5c, 0xffd9621b},
    {0xffff7d8f, 0xffd33a55}, {0xff4fc3d9, 0xff13809b}, {0xff8c96ab, 0xff566179}, {0xffe0b13f, 0xffa87708},
};

const Tint &tintOf(const QString &name)
{
    auto sum = 0U;
    for (const auto character : name)
        sum = sum * 31 + character.unicode();
    return tints[sum % std::size(tints)];
}

// The first character that a person sees as one, from a letter or digit on; empty when there is none.
QString initialOf(const QString &name)
{
    const auto *start = std::ranges::find_if(name, [](QChar each) { return each.isLetterOrNumber(); });
    const QString rest(start, name.end() - start);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, rest);
    finder.toNextBoundary();
    return rest.left(finder.position()).toUpper();
}

void drawInitial(QPainter &painter, const QString &initial, int side)
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(std::max(side * 13 / 24, 1));
    font.setWeight(QFont::DemiBold);
    QPainterPath letter;
    letter.addText(0, 0, font, initial);
    // Centred by what is inked: the letters' own margins would show in so small a frame.
    painter.translate(QPointF(side, side) / 2 - letter.boundingRect().center());
    painter.fillPath(letter, Qt::white);
}

} // namespace

QImage BundleIcon::decoded(const QByteArray &data, int side)
{
    // The limit holds for the whole program; pictures of bundles are all that it ever decodes.
    QImageReader::setAllocationLimit(largestPicture);
    auto bytes = data;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::ReadOnly);
    const auto picture = data.startsWith("icns")      ? icnsPicture(buffer, side)
                         : data.startsWith("\x89PNG") ? pngPicture(buffer)
                                                      : QImage();
    if (picture.isNull())
        return {};

    const auto fitted = picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    auto icon = transparentSquare(side);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    QBrush brush(fitted);
    const QPoint corner((side - fitted.width()) / 2, (side - fitted.height()) / 2);
    brush.setTransform(QTransform::fromTranslate(corner.x(), corner.y()));
    painter.setClipRect(QRect(corner, fitted.size()));
    painter.fillPath(roundedSquare(side), brush);
    return icon;
}

QImage BundleIcon::drawn(const QString &name, int side)
{
    auto icon = transparentSquare(side);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    // The margin that icons are drawn with, so that none is larger than its neighbours.
    const auto margin = side / 16;
    const auto tile = side - 2 * margin;
    painter.translate(margin, margin);
    const auto &tint = tintOf(name);
    QLinearGradient gradient(0, 0, 0, tile);
    gradient.setColorAt(0, QColor(tint.top));
    gradient.setColorAt(1, QColor(tint.bottom));
    painter.fillPath(roundedSquare(tile), gradient);
    drawInitial(painter, initialOf(name), tile);
    return icon;
}
