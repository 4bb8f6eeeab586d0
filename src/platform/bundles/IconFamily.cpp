#include "IconFamily.h"

#include <QtEndian>

namespace {

constexpr qsizetype headSize = 8;
// 128 points on a screen of double density: nothing shows an icon larger.
constexpr int sufficientWidth = 256;

quint32 integerAt(QByteArrayView bytes, qsizetype position)
{
    return qFromBigEndian<quint32>(bytes.sliced(position, 4).data());
}

bool servesBetter(int width, int than)
{
    const bool isSufficient = width >= sufficientWidth;
    if (isSufficient != (than >= sufficientWidth))
        return isSufficient;
    return isSufficient ? width < than : width > than;
}

} // namespace

int iconWidth(QByteArrayView png)
{
    constexpr quint32 largest = 2048;
    constexpr qsizetype chunkType = 12;
    constexpr qsizetype widthField = 16;
    if (png.size() < widthField + 8 || !png.startsWith("\x89PNG\r\n\x1a\n")
        || png.sliced(chunkType, 4) != QByteArrayView("IHDR"))
        return 0;
    const auto width = integerAt(png, widthField);
    const auto height = integerAt(png, widthField + 4);
    return width <= largest && height <= largest ? static_cast<int>(width) : 0;
}

QByteArray bestPicture(const QByteArray &family)
{
    if (family.size() < headSize || !family.startsWith("icns"))
        return {};
    const qsizetype size = integerAt(family, 4);
    if (size < headSize || size > family.size())
        return {};
    auto rest = QByteArrayView(family).first(size).sliced(headSize);
    QByteArrayView best;
    // A type of four bytes, the length of the whole element, and the picture.
    while (rest.size() >= headSize) {
        const qsizetype length = integerAt(rest, 4);
        if (length < headSize || length > rest.size())
            break;
        const auto picture = rest.first(length).sliced(headSize);
        if (const int width = iconWidth(picture); width > 0 && servesBetter(width, iconWidth(best)))
            best = picture;
        rest = rest.sliced(length);
    }
    if (!best.isEmpty())
        return best.toByteArray();
    const bool isWhole = rest.size() < headSize;
    return isWhole ? family : QByteArray();
}
