#pragma once

#include <QImage>
#include <QQuickImageProvider>
#include <QStringList>

/// Draws the symbols of the window: "image://symbols/NAME/WEIGHT/COLOUR".
///
/// NAME is the name of a drawing in symbols/, WEIGHT a font's weight (400, 500 or 600) that chooses the width of
/// the strokes, COLOUR "rrggbb" or "aarrggbb". The picture has the size that the request asks for. A name that has
/// no drawing gives no picture and says so in the log: it is a slip of the program's own.
class SymbolProvider : public QQuickImageProvider
{
public:
    SymbolProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

    /// The names of all drawings, sorted.
    static QStringList names();

    /// The symbol `name` in a square of `side` pixels; a null image when there is no such drawing.
    static QImage draw(const QString &name, int side, int weight, const QColor &color);
};
