#include "ContinuousRectangle.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <QSGTexture>

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

ContinuousRectangle::ContinuousRectangle(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &ContinuousRectangle::changed, this, &ContinuousRectangle::redraw);
}

void ContinuousRectangle::redraw()
{
    m_isDrawn = false;
    update();
}

void ContinuousRectangle::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

void ContinuousRectangle::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        redraw();
    QQuickItem::itemChange(change, data);
}

qreal ContinuousRectangle::corner() const
{
    return std::ceil(std::max(m_radius * reachOfBend, m_borderWidth)) + 1;
}

QImage ContinuousRectangle::picture(const QSizeF &size, qreal pixelRatio) const
{
    QImage image((size * pixelRatio).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF rect({}, image.deviceIndependentSize());

    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    painter.drawPath(continuousPath(rect, m_radius));
    if (m_borderWidth > 0 && m_borderColor.alpha() > 0) {
        QPen pen(m_borderColor, m_borderWidth);
        if (m_dash > 0)
            pen.setDashPattern({m_dash / m_borderWidth, m_dash / m_borderWidth});
        pen.setCapStyle(Qt::FlatCap);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        const auto inset = m_borderWidth / 2;
        painter.drawPath(continuousPath(rect.adjusted(inset, inset, -inset, -inset), m_radius - inset));
    }
    return image;
}

void ContinuousRectangle::drawOn(QSGNinePatchNode *node, const QSizeF &size, qreal padding) const
{
    const auto pixelRatio = window()->effectiveDevicePixelRatio();
    node->setTexture(window()->createTextureFromImage(picture(size, pixelRatio)));
    node->setDevicePixelRatio(pixelRatio);
    node->setPadding(padding, padding, padding, padding);
}

QSGNode *ContinuousRectangle::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (width() <= 0 || height() <= 0 || (m_color.alpha() == 0 && m_borderColor.alpha() == 0)) {
        delete node;
        m_isDrawn = false;
        return nullptr;
    }
    auto *patch = static_cast<QSGNinePatchNode *>(node);
    if (!patch) {
        patch = window()->createNinePatchNode();
        m_isDrawn = false;
    }

    const auto edge = corner();
    const QSizeF stretchable(2 * edge + 1, 2 * edge + 1);
    const bool stretches = m_dash <= 0 && width() >= stretchable.width() && height() >= stretchable.height();
    const auto wanted = stretches ? stretchable : size();
    if (!m_isDrawn || wanted != m_drawnSize) {
        drawOn(patch, wanted, stretches ? edge : 0);
        m_drawnSize = wanted;
        m_isDrawn = true;
    }
    patch->setBounds(boundingRect());
    patch->update();
    return patch;
}
