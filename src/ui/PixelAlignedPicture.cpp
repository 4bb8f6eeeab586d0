#include "PixelAlignedPicture.h"

#include <QCache>
#include <QMutex>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>

#include <array>
#include <cmath>

namespace {

constexpr auto mostBytesKept = 4 * 1024 * 1024;

/// Where the item lies in the window, in its units; absent when it is turned or scaled there.
std::optional<QPointF> placeOf(const QSGNode &item)
{
    QPointF place;
    for (const auto *node = item.parent(); node; node = node->parent()) {
        if (node->type() != QSGNode::TransformNodeType)
            continue;
        const auto &matrix = static_cast<const QSGTransformNode *>(node)->matrix();
        if (!qFuzzyCompare(matrix(0, 0), 1.0F) || !qFuzzyCompare(matrix(1, 1), 1.0F) || !qFuzzyIsNull(matrix(0, 1))
            || !qFuzzyIsNull(matrix(1, 0)))
            return std::nullopt;
        place += QPointF(matrix(0, 3), matrix(1, 3));
    }
    return place;
}

/// A picture in one piece, or in nine that stretch as they must. Looks before every frame where it came to lie.
///
/// A transform without one of its own: what comes below any other kind of node later, the software renderer draws in the
/// window's corner.
class PictureNode : public QSGTransformNode
{
public:
    PictureNode() { setFlag(UsePreprocess); }

    /// With `edge` device pixels along each edge that keep their size; 0 where it does not stretch.
    void show(QQuickWindow &window, const QImage &image, int edge, bool stretches);
    void setSize(QSize size, qreal pixelRatio);
    void preprocess() override;

private:
    struct Piece
    {
        QSGImageNode *node;
        size_t column;
        size_t row;
    };
    /// Where the columns begin and the last of them ends in a picture of this width; the rows likewise. The one piece of
    /// a picture that does not stretch is its middle.
    std::array<int, 4> lines(int length) const { return {0, m_edge, length - m_edge, length}; }
    /// All but the middle where it is drawn by itself, else the middle alone.
    void addPieces(QQuickWindow &window, const QImage &image, bool hasMiddle);
    void layOut();

    QList<Piece> m_pieces;
    QSGRectangleNode *m_middle = nullptr;
    int m_edge = 0;
    QSize m_size;
    qreal m_pixelRatio = 1;
    /// From the item's place to the nearest device pixel, in the item's units.
    QPointF m_offset;
};

void PictureNode::show(QQuickWindow &window, const QImage &image, int edge, bool stretches)
{
    while (auto *child = firstChild()) {
        removeChildNode(child);
        delete child;
    }
    m_pieces.clear();
    m_middle = nullptr;
    m_edge = edge;
    // A colour is filled several times as fast as a picture is stretched. Alone it is not: where an opaque one moves, the
    // software renderer forgets the pixels along its edge that it no longer covers.
    const bool hasMiddle = stretches && m_edge > 0;
    addPieces(window, image, hasMiddle);
    if (const auto color = image.pixelColor(m_edge, m_edge); hasMiddle && color.alpha() > 0) {
        m_middle = window.createRectangleNode();
        m_middle->setColor(color);
        appendChildNode(m_middle);
    }
}

void PictureNode::addPieces(QQuickWindow &window, const QImage &image, bool hasMiddle)
{
    auto *texture = window.createTextureFromImage(image, QQuickWindow::TextureCanUseAtlas);
    const auto x = lines(image.width()), y = lines(image.height());
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            const bool isMiddle = row == 1 && column == 1;
            if (isMiddle == hasMiddle)
                continue;
            auto *node = window.createImageNode();
            node->setTexture(texture);
            node->setOwnsTexture(m_pieces.isEmpty());
            node->setSourceRect(QRectF(QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1])));
            appendChildNode(node);
            m_pieces.append({node, column, row});
        }
    }
}

void PictureNode::setSize(QSize size, qreal pixelRatio)
{
    m_size = size;
    m_pixelRatio = pixelRatio;
    layOut();
}

void PictureNode::preprocess()
{
    QPointF offset;
    if (const auto place = placeOf(*this)) {
        const auto toPixel = [this](qreal at) { return std::floor(at * m_pixelRatio + 0.5) / m_pixelRatio - at; };
        offset = {toPixel(place->x()), toPixel(place->y())};
    }
    if (offset == m_offset)
        return;
    m_offset = offset;
    layOut();
}

void PictureNode::layOut()
{
    const auto x = lines(m_size.width()), y = lines(m_size.height());
    const auto place = [&](size_t column, size_t row) {
        return QRectF(m_offset + QPointF(x[column], y[row]) / m_pixelRatio,
                      m_offset + QPointF(x[column + 1], y[row + 1]) / m_pixelRatio);
    };
    for (const auto &piece : m_pieces)
        piece.node->setRect(place(piece.column, piece.row));
    if (m_middle)
        m_middle->setRect(place(1, 1));
}

} // namespace

PixelAlignedPicture::PixelAlignedPicture(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PixelAlignedPicture::redraw()
{
    m_isDrawn = false;
    update();
}

void PixelAlignedPicture::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

void PixelAlignedPicture::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        redraw();
    QQuickItem::itemChange(change, data);
}

QImage PixelAlignedPicture::picture(QSize size, qreal pixelRatio) const
{
    const auto what = description();
    if (what.isEmpty())
        return draw(size, pixelRatio);
    const auto key = QStringLiteral("%1/%2x%3/%4").arg(what).arg(size.width()).arg(size.height()).arg(pixelRatio);
    // Windows may be drawn by a thread each.
    static QMutex mutex;
    static QCache<QString, QImage> kept(mostBytesKept);
    const QMutexLocker lock(&mutex);
    if (const auto *image = kept.object(key))
        return *image;
    const auto image = draw(size, pixelRatio);
    kept.insert(key, new QImage(image), image.sizeInBytes());
    return image;
}

QSGNode *PixelAlignedPicture::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    const auto pixelRatio = window()->effectiveDevicePixelRatio();
    const auto pixels = (size() * pixelRatio).toSize();
    const auto stretchable = edge(pixelRatio);
    const auto kept = stretchable.value_or(0);
    const auto least = 2 * kept + 1;
    const bool stretches = stretchable.has_value() && pixels.width() >= least && pixels.height() >= least;
    const auto wanted = stretches ? QSize(least, least) : pixels;

    auto *shown = static_cast<PictureNode *>(node);
    if (!shown || !m_isDrawn || wanted != m_drawnSize) {
        const auto image = pixels.isEmpty() ? QImage() : picture(wanted, pixelRatio);
        if (image.isNull()) {
            delete node;
            return nullptr;
        }
        if (!shown)
            shown = new PictureNode;
        shown->show(*window(), image, stretches ? kept : 0, stretches);
        m_drawnSize = wanted;
        m_isDrawn = true;
    }
    shown->setSize(pixels, pixelRatio);
    return shown;
}
