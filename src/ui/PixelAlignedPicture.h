#pragma once

#include <QImage>
#include <QQuickItem>

#include <optional>

/// An item that shows a picture drawn for it. The picture is measured in whole device pixels and set down on whole ones,
/// wherever the item comes to lie, so that it is sharp and without seams at every scale, with Qt's own renderer and with
/// the software one.
class PixelAlignedPicture : public QQuickItem
{
    Q_OBJECT

public:
    explicit PixelAlignedPicture(QQuickItem *parent = nullptr);

protected:
    /// How wide the part along each edge is that keeps its size while the middle stretches; what stretches has one
    /// colour across. Absent where every size has a picture of its own. In device pixels, `pixelRatio` of which are one
    /// unit of the item. Called while the main thread waits, like `draw`.
    virtual std::optional<int> edge(qreal pixelRatio) const = 0;
    /// The picture in `size` device pixels; a null image for none. A middle that need not be drawn is transparent.
    virtual QImage draw(QSize size, qreal pixelRatio) const = 0;

    /// What is drawn besides its size and scale: pictures of one description are the same, and one that was drawn lately
    /// is not drawn again. Empty for what is not worth keeping.
    virtual QString description() const { return {}; }

    /// Has the picture drawn anew.
    void redraw();

    void geometryChange(const QRectF &now, const QRectF &before) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;

private:
    QImage picture(QSize size, qreal pixelRatio) const;

    bool m_isDrawn = false;
    QSize m_drawnSize;
};
