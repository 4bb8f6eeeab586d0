#include "RingGauge.h"

#include <QLinearGradient>
#include <QPainter>
#include <QtMath>

#include <algorithm>

RingGauge::RingGauge(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &RingGauge::changed, this, [this] { update(); });
}

void RingGauge::paint(QPainter *painter)
{
    const auto side = std::min(width(), height()) - m_thickness;
    const QRectF ring((width() - side) / 2, (height() - side) / 2, side, side);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_trackColor, m_thickness));
    painter->drawEllipse(ring);

    const auto fraction = std::clamp(m_fraction, 0.0, 1.0);
    if (!(fraction > 0))
        return;
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, m_topColor);
    gradient.setColorAt(1, m_bottomColor);
    painter->setPen(QPen(gradient, m_thickness, Qt::SolidLine, Qt::RoundCap));
    if (fraction >= 1)
        return painter->drawEllipse(ring);
    // The round ends belong to the share, so that nearly full does not look full; less than two ends is a dot.
    const auto end = qRadiansToDegrees(m_thickness / side);
    const auto sweep = std::max(fraction * 360 - 2 * end, 0.1);
    painter->drawArc(ring, qRound((90 - end) * 16), -qRound(sweep * 16));
}
