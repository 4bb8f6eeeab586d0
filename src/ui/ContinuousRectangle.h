#pragma once

#include "PixelAlignedPicture.h"

#include <QColor>

/// A rectangle whose corners bend gradually, unlike the arcs of Qt's own. Drawn once as a small picture whose middle
/// stretches, so that it costs the same at every size. A line is as wide as whole device pixels, one of them at least.
class ContinuousRectangle : public PixelAlignedPicture
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
    std::optional<int> edge(qreal pixelRatio) const override;
    QImage draw(QSize size, qreal pixelRatio) const override;

private:
    /// In device pixels.
    int lineWidth(qreal pixelRatio) const;

    QColor m_color = Qt::white;
    QColor m_borderColor = Qt::transparent;
    qreal m_radius = 0;
    qreal m_borderWidth = 0;
    qreal m_dash = 0;
};
