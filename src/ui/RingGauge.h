#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

/// A share as an arc on a ring, clockwise from the top; smooth with every renderer, sharp at every scale.
class RingGauge : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// 0 to 1; what lies outside is taken for the nearer end.
    Q_PROPERTY(qreal fraction MEMBER m_fraction NOTIFY changed)
    /// The arc's colours at the top and at the bottom of the ring.
    Q_PROPERTY(QColor topColor MEMBER m_topColor NOTIFY changed)
    Q_PROPERTY(QColor bottomColor MEMBER m_bottomColor NOTIFY changed)
    /// The colour of the ring beneath.
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor NOTIFY changed)
    Q_PROPERTY(qreal thickness MEMBER m_thickness NOTIFY changed)

public:
    explicit RingGauge(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    qreal m_fraction = 0;
    QColor m_topColor = Qt::black;
    QColor m_bottomColor = Qt::black;
    QColor m_trackColor = Qt::lightGray;
    qreal m_thickness = 12;
};
