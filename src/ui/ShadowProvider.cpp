#include "ShadowProvider.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {
// A blur of n pixels is a Gaussian whose deviation is half of it, cut off where nothing is left to see.
std::vector<double> gaussian(int blur)
{
    const auto deviation = std::max(blur, 1) / 2.0;
    std::vector<double> weights;
    auto sum = 0.0;
    for (int distance = -2 * blur; distance <= 2 * blur; ++distance) {
        weights.push_back(std::exp(-distance * distance / (2 * deviation * deviation)));
        sum += weights.back();
    }
    for (auto &weight : weights)
        weight /= sum;
    return weights;
}

// Blurs along rows and answers the image turned over its diagonal: done twice, it is blurred along both.
QImage blurredAndTransposed(const QImage &image, const std::vector<double> &weights)
{
    const auto reach = static_cast<int>(weights.size() / 2);
    QImage result(image.height(), image.width(), QImage::Format_Alpha8);
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            auto sum = 0.0;
            const auto last = std::min(x + reach, image.width() - 1);
            auto weight = weights.begin() + std::max(reach - x, 0);
            for (int i = std::max(x - reach, 0); i <= last; ++i)
                sum += row[i] * *weight++;
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(sum));
        }
    }
    return result;
}
} // namespace

ShadowProvider::ShadowProvider() : QQuickImageProvider(Image) { }

QImage ShadowProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    auto image = draw(id.section(u'/', 0, 0).toInt(), id.section(u'/', 1, 1).toInt());
    *size = image.size();
    return image;
}

QImage ShadowProvider::draw(int radius, int blur)
{
    const auto reach = 2 * blur;
    // The straight part is as long as the blur reaches, so that each corner fades as if the others were far away.
    const auto shape = 2 * (radius + reach) + 1;
    QImage image(shape + 2 * reach, shape + 2 * reach, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(reach, reach, shape, shape, radius, radius);
    painter.end();

    const auto weights = gaussian(blur);
    const auto mask = blurredAndTransposed(blurredAndTransposed(image, weights), weights);

    QImage shadow(image.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < shadow.height(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(shadow.scanLine(y));
        for (int x = 0; x < shadow.width(); ++x)
            pixels[x] = qRgba(0, 0, 0, mask.constScanLine(y)[x]);
    }
    return shadow;
}
