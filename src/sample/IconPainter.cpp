#include "IconPainter.h"

#include <QBuffer>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QtEndian>

namespace {

void appendBigEndian(QByteArray &bytes, quint32 value)
{
    char buffer[4];
    qToBigEndian(value, buffer);
    bytes.append(buffer, sizeof buffer);
}

} // namespace

QByteArray paintedPng(QColor color, const QString &letter, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF tile = QRectF(0, 0, size, size).adjusted(size * 0.06, size * 0.06, -size * 0.06, -size * 0.06);
    QLinearGradient gradient(tile.topLeft(), tile.bottomLeft());
    gradient.setColorAt(0, color.lighter(125));
    gradient.setColorAt(1, color.darker(115));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(tile, tile.width() * 0.225, tile.width() * 0.225);

    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(static_cast<int>(tile.width() * 0.58));
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(QColor(255, 255, 255, 240));
    painter.drawText(tile, Qt::AlignCenter, letter);
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray paintedIcns(QColor color, const QString &letter)
{
    struct Picture
    {
        const char *type;
        int size;
    };
    // The types of PNG pictures in the icon format.
    constexpr Picture pictures[] = {{"ic07", 128}, {"ic08", 256}, {"ic09", 512}};

    QByteArray body;
    for (const auto &[type, size] : pictures) {
        const auto png = paintedPng(color, letter, size);
        body.append(type, 4);
        appendBigEndian(body, static_cast<quint32>(png.size() + 8));
        body.append(png);
    }
    QByteArray file("icns");
    appendBigEndian(file, static_cast<quint32>(body.size() + 8));
    return file + body;
}
