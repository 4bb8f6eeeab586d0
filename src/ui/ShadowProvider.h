#pragma once

#include <QImage>
#include <QQuickImageProvider>

/// Draws soft shadows of rounded rectangles to be stretched as nine patches: "image://shadows/RADIUS/BLUR".
///
/// RADIUS is the corner radius of what casts the shadow and BLUR how far the shadow fades, both in pixels. The
/// shadow is opaque black where it is deepest. It reaches `2 * BLUR` beyond the shape on each side; one pixel in
/// the middle stretches.
class ShadowProvider : public QQuickImageProvider
{
public:
    ShadowProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

    static QImage draw(int radius, int blur);
};
