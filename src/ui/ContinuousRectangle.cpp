#include "ContinuousRectangle.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

/// How far along the edge the bend of a corner begins, as a multiple of its radius. An arc's begins at 1.
constexpr qreal reachOfBend = 1.528;

/// Each corner is one cubic curve that passes the corner's point at the distance in which an arc of `radius`
/// would. Where a side is too short for the whole bend it becomes an arc.
QPainterPath continuousPath(const QRectF &rect, qreal radius)
{
    const auto half = std::min(rect.width(), rect.height()) / 2;
    radius = std::min(radius, half);
    const auto reach = std::min(radius * reachOfBend, half);
    const auto pull = (8 * (1 - std::sqrt(0.5)) * radius - reach) / 3;

    QPainterPath path;
    if (!(radius > 0)) {
        path.addRect(rect);
        return path;
    }
    const auto corner = [&](QPointF point, QPointF from, QPointF to) {
        const auto begin = point + from * reach;
        path.isEmpty() ? path.moveTo(begin) : path.lineTo(begin);
        path.cubicTo(point + from * pull, point + to * pull, point + to * reach);
    };
    const QPointF left(-1, 0), right(1, 0), up(0, -1), down(0, 1);
    corner(rect.topLeft(), down, right);
    corner(rect.topRight(), left, down);
    corner(rect.bottomRight(), up, left);
    corner(rect.bottomLeft(), right, up);
    path.closeSubpath();
    return path;
}

} // namespace

ContinuousRectangle::ContinuousRectangle(QQuickItem *parent) : PixelAlignedPicture(parent)
{
    connect(this, &ContinuousRectangle::changed, this, &ContinuousRectangle::redraw);
}

int ContinuousRectangle::lineWidth(qreal pixelRatio) const
{
    return m_borderWidth > 0 ? std::max(qRound(m_borderWidth * pixelRatio), 1) : 0;
}

std::optional<int> ContinuousRectangle::edge(qreal pixelRatio) const
{
    if (m_dash > 0)
        return std::nullopt;
    return std::max(static_cast<int>(std::ceil(m_radius * reachOfBend * pixelRatio)), lineWidth(pixelRatio));
}

QImage ContinuousRectangle::draw(QSize size, qreal pixelRatio) const
{
    const auto hasLine = m_borderWidth > 0 && m_borderColor.alpha() > 0;
    if (m_color.alpha() == 0 && !hasLine)
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF rect(image.rect());
    const auto radius = m_radius * pixelRatio;

    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    painter.drawPath(continuousPath(rect, radius));
    if (hasLine) {
        const qreal width = lineWidth(pixelRatio);
        QPen pen(m_borderColor, width);
        if (m_dash > 0)
            pen.setDashPattern({m_dash * pixelRatio / width, m_dash * pixelRatio / width});
        pen.setCapStyle(Qt::FlatCap);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        const auto inset = width / 2;
        painter.drawPath(continuousPath(rect.adjusted(inset, inset, -inset, -inset), radius - inset));
    }
    return image;
}
