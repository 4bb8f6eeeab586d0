// Draws the symbols side by side into one picture, light above dark, in the sizes and weights that the window
// uses: a family can only be judged together. Usage: symbols_sheet PICTURE [SCALE]

#include "SymbolPicture.h"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>

namespace {
constexpr auto columns = 6;
constexpr QSize cell(200, 132);

struct Palette
{
    QRgb background;
    QRgb text;
    QRgb accent;
};
constexpr Palette palettes[] = {
    {0xffffffff, 0xff26262b, 0xff0a6cff},
    {0xff1e1e20, 0xffe6e6ea, 0xff4c9bff},
};

struct Sample
{
    QPoint place;
    int side;
    int weight;
    QRgb Palette::*color;
};
constexpr Sample samples[] = {
    {{10, 12}, 72, QFont::Normal, &Palette::text},      {{92, 20}, 48, QFont::DemiBold, &Palette::accent},
    {{150, 16}, 26, QFont::DemiBold, &Palette::accent}, {{150, 50}, 20, QFont::Medium, &Palette::text},
    {{174, 50}, 20, QFont::Normal, &Palette::text},     {{150, 78}, 16, QFont::Normal, &Palette::text},
    {{174, 78}, 14, QFont::Normal, &Palette::text},
};

void drawCell(QPainter &painter, const QString &name, const Palette &palette, QPoint corner)
{
    const auto scale = painter.device()->devicePixelRatio();
    for (const auto &sample : samples) {
        auto image = SymbolPicture::drawn(name, qRound(sample.side * scale), sample.weight, palette.*sample.color);
        image.setDevicePixelRatio(scale);
        painter.drawImage(corner + sample.place, image);
    }
    painter.setPen(QColor(palette.text));
    painter.drawText(QRect(corner + QPoint(8, 100), QSize(cell.width() - 8, 20)), name);
}
} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const auto arguments = application.arguments();
    if (arguments.size() < 2)
        qFatal("Usage: symbols_sheet PICTURE [SCALE]");
    const auto scale = arguments.size() > 2 ? arguments[2].toInt() : 1;

    const auto names = SymbolPicture::names();
    const auto count = static_cast<int>(names.size());
    const QSize half(columns * cell.width(), (count + columns - 1) / columns * cell.height());
    QImage sheet(half.width() * scale, half.height() * 2 * scale, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(scale);

    QPainter painter(&sheet);
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(10);
    painter.setFont(font);
    auto top = 0;
    for (const auto &palette : palettes) {
        painter.fillRect(QRect(QPoint(0, top), half), QColor(palette.background));
        for (int i = 0; i < count; ++i)
            drawCell(painter, names[i], palette, {i % columns * cell.width(), top + i / columns * cell.height()});
        top += half.height();
    }
    painter.end();
    return sheet.save(arguments[1]) ? 0 : 1;
}
