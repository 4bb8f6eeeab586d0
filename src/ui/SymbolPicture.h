#pragma once

#include "PixelAlignedPicture.h"

#include <QColor>
#include <QFont>
#include <QStringList>

/// One of the drawings in symbols/, in one colour. A name that has no drawing shows nothing and says so in the log: it is a
/// slip of the program's own; an empty one is no symbol.
class SymbolPicture : public PixelAlignedPicture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    /// A font's weight, which chooses the width of the strokes: Font.Normal, Font.Medium or Font.DemiBold.
    Q_PROPERTY(int weight MEMBER m_weight NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)

public:
    explicit SymbolPicture(QQuickItem *parent = nullptr);

    /// The names of all drawings, sorted.
    static QStringList names();

    /// The symbol `name` in a square of `side` pixels; a null image when there is no such drawing. Safe to call from any
    /// thread.
    static QImage drawn(const QString &name, int side, int weight, const QColor &color);

Q_SIGNALS:
    void changed();

protected:
    std::optional<int> edge(qreal) const override { return std::nullopt; }
    QImage draw(QSize size, qreal pixelRatio) const override;
    QString description() const override;

private:
    QString m_name;
    int m_weight = QFont::Normal;
    QColor m_color = Qt::black;
};
