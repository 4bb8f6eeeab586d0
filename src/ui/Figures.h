#pragma once

#include "PixelAlignedPicture.h"

#include <QColor>
#include <QFont>

/// A line of text with numbers that change, or that stand below one another: every digit has a cell as wide as the widest
/// of them. Fonts have figures for that, which Qt 6.4 cannot ask them for. Assistive technology is not told of it by itself.
class Figures : public PixelAlignedPicture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed REQUIRED)

public:
    explicit Figures(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    std::optional<int> edge(qreal) const override { return std::nullopt; }
    QImage draw(QSize size, qreal pixelRatio) const override;
    QString description() const override;

private:
    void layOut();

    QString m_text;
    QFont m_font;
    QColor m_color = Qt::black;
};
