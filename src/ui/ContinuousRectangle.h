#pragma once

#include <QColor>
#include <QQuickItem>

class QSGNinePatchNode;

/// A rectangle whose corners bend gradually, unlike the arcs of Qt's own. Drawn once as a small picture whose
/// middle stretches, so that it costs the same at every size; sharp at every scale.
class ContinuousRectangle : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)
    /// The line along the inside of the edge.
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY changed)
    Q_PROPERTY(qreal borderWidth MEMBER m_borderWidth NOTIFY changed)
    /// The length of a dash of the line and of the gap after it; 0 for a line without gaps.
    Q_PROPERTY(qreal dash MEMBER m_dash NOTIFY changed)

public:
    explicit ContinuousRectangle(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    void geometryChange(const QRectF &now, const QRectF &before) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;

private:
    void redraw();
    void drawOn(QSGNinePatchNode *node, const QSizeF &size, qreal padding) const;
    /// Width of the part at each edge that does not stretch; half of the picture or more where nothing can.
    qreal corner() const;
    QImage picture(const QSizeF &size, qreal pixelRatio) const;

    QColor m_color = Qt::white;
    QColor m_borderColor = Qt::transparent;
    qreal m_radius = 0;
    qreal m_borderWidth = 0;
    qreal m_dash = 0;
    bool m_isDrawn = false;
    QSizeF m_drawnSize;
};
