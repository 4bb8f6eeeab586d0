#pragma once

#include "PixelAlignedPicture.h"

/// The soft shadow of a rounded rectangle: as large as what casts it and `reach` more on each side, opaque black where it
/// is deepest. Where it stretches it has no middle, for what casts it lies over that.
class ShadowPicture : public PixelAlignedPicture
{
    Q_OBJECT
    QML_ELEMENT
    /// The corner radius of what casts the shadow.
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)
    /// How far the shadow fades: a Gaussian whose deviation is half of it.
    Q_PROPERTY(qreal blur MEMBER m_blur NOTIFY changed)
    Q_PROPERTY(qreal reach READ reach NOTIFY changed)

public:
    explicit ShadowPicture(QQuickItem *parent = nullptr);

    /// How far beyond what casts it there is something to see.
    qreal reach() const { return 1.5 * m_blur; }

Q_SIGNALS:
    void changed();

protected:
    std::optional<int> edge(qreal pixelRatio) const override;
    QImage draw(QSize size, qreal pixelRatio) const override;
    QString description() const override;

private:
    qreal m_radius = 0;
    qreal m_blur = 0;
};
