#include "ShadowPicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {
std::vector<float> gaussian(double deviation, int reach)
{
    std::vector<float> weights;
    auto sum = 0.0F;
    for (int distance = -reach; distance <= reach; ++distance) {
        weights.push_back(static_cast<float>(std::exp(-distance * distance / (2 * deviation * deviation))));
        sum += weights.back();
    }
    for (auto &weight : weights)
        weight /= sum;
    return weights;
}

// `quarter` is the top left quarter of a picture that is the same in all four, and `width` how wide all of it is. Blurs
// along rows and answers the quarter turned over its diagonal: done twice, it is blurred along both.
QImage blurredAndTransposed(const QImage &quarter, int width, const std::vector<float> &weights)
{
    const auto reach = static_cast<int>(weights.size() / 2);
    QImage result(quarter.height(), quarter.width(), QImage::Format_Alpha8);
    for (int y = 0; y < quarter.height(); ++y) {
        const auto *row = quarter.constScanLine(y);
        for (int x = 0; x < quarter.width(); ++x) {
            auto sum = 0.0F;
            const auto last = std::min(x + reach, width - 1);
            auto weight = weights.begin() + std::max(reach - x, 0);
            for (int i = std::max(x - reach, 0); i <= last; ++i)
                sum += static_cast<float>(row[std::min(i, width - 1 - i)]) * *weight++;
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(sum));
        }
    }
    return result;
}
} // namespace

ShadowPicture::ShadowPicture(QQuickItem *parent) : PixelAlignedPicture(parent)
{
    connect(this, &ShadowPicture::changed, this, &ShadowPicture::redraw);
}

std::optional<int> ShadowPicture::edge(qreal pixelRatio) const
{
    // The straight part is as long as the blur reaches, so that each corner fades as if the others were far away.
    return static_cast<int>(std::ceil((2 * reach() + m_radius) * pixelRatio));
}

QString ShadowPicture::description() const
{
    return QStringLiteral("shadow/%1/%2").arg(m_radius).arg(m_blur);
}

QImage ShadowPicture::draw(QSize size, qreal pixelRatio) const
{
    const auto around = qRound(reach() * pixelRatio);
    const auto radius = m_radius * pixelRatio;
    QImage shape((size.width() + 1) / 2, (size.height() + 1) / 2, QImage::Format_Alpha8);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRect({}, size).adjusted(around, around, -around, -around), radius, radius);
    painter.end();

    const auto weights = gaussian(m_blur * pixelRatio / 2, around);
    const auto turned = blurredAndTransposed(shape, size.width(), weights);
    const auto mask = blurredAndTransposed(turned, size.height(), weights);

    QImage shadow(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        const auto *row = mask.constScanLine(std::min(y, size.height() - 1 - y));
        auto *pixels = reinterpret_cast<QRgb *>(shadow.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            pixels[x] = qRgba(0, 0, 0, row[std::min(x, size.width() - 1 - x)]);
    }
    if (const auto corner = edge(pixelRatio).value(); size == QSize(2 * corner + 1, 2 * corner + 1))
        shadow.setPixel(corner, corner, 0);
    return shadow;
}
