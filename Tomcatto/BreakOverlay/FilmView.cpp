#include "FilmView.h"

#include "PaintedPixels.h"

#include <cmath>
#include <QtQuick/QSGSimpleTextureNode>

namespace tomcatto {
namespace {

/// Part of a picture, painted straight into the window's memory wherever the window asks for it.
class Tile final : public QSGRenderNode
{
public:
    /// @param area of the item, in the window's units @param scale device pixels of one of them
    Tile(FramePicture &picture, QQuickWindow &window, const QRectF &area, qreal scale)
        : m_picture(picture)
        , m_window(window)
        , m_area(area)
        , m_scale(scale)
    {
        setFlag(OwnedByParent);
    }

    void render(const RenderState *state) override
    {
        const PaintedPixels pixels = PaintedPixels::of(m_window, *this, *state, m_scale);
        const QRect mine = QRect(pixelAt(m_area.topLeft()), pixelAt(m_area.bottomRight()) - QPoint(1, 1)) &
                           QRect(QPoint(), m_picture.size());
        for (const QRect &area : pixels.asked &mine)
            m_picture.paint(area, *pixels.target, pixels.origin);
    }

    [[nodiscard]] StateFlags changedStates() const override { return {}; }
    [[nodiscard]] RenderingFlags flags() const override { return BoundedRectRendering | OpaqueRendering; }
    [[nodiscard]] QRectF rect() const override { return m_area; }

private:
    [[nodiscard]] QPoint pixelAt(QPointF place) const { return (place * m_scale).toPoint(); }

    FramePicture &m_picture;
    QQuickWindow &m_window;
    QRectF m_area;
    qreal m_scale;
};

/// Paints nothing. A node that goes leaves its place to be painted by what is below and above, and by nothing else, so
/// this asks for an area of a tile, which by itself would be painted whole.
class Mark final : public QSGRenderNode
{
public:
    explicit Mark(const QRectF &area)
        : m_area(area)
    {
    }
    void render(const RenderState *) override {}
    [[nodiscard]] RenderingFlags flags() const override { return BoundedRectRendering; }
    [[nodiscard]] QRectF rect() const override { return m_area; }

private:
    QRectF m_area;
};

/// All tiles of a picture. It moves nothing, but only what joins a node of this kind later on is told where it lies.
class Tiles final : public QSGTransformNode
{
public:
    Tiles(FramePicture &picture, QQuickWindow &window, QSizeF size, qreal scale)
        : m_scale(scale)
    {
        // Large, for each costs something with every frame; what of them changed is handed on to the display whole.
        constexpr QSize tileSize{640, 360};
        const QRectF whole(QPointF(), size);
        for (int top = 0; top < whole.height(); top += tileSize.height()) {
            for (int left = 0; left < whole.width(); left += tileSize.width())
                appendChildNode(new Tile(picture, window, QRectF(QPoint(left, top), tileSize) & whole, scale));
        }
    }

    /// @param place of the item in its window
    void repaintChanges(const FramePicture &picture, QPointF place)
    {
        // Edges that are whole in the window's units and in pixels, at each scale in quarters: nothing is painted in
        // part. At others the edges of what is painted again would be seen, but for those of the whole.
        constexpr qreal grid = 4;
        const bool isWhole = std::floor(m_scale * grid) == m_scale * grid;
        for (const QRect &change : isWhole ? picture.changes() : std::vector{QRect(QPoint(), picture.size())}) {
            const QPointF corner = place + QPointF(change.topLeft()) / m_scale;
            const QRect cells = QRectF(corner / grid, QSizeF(change.size()) / m_scale / grid).toAlignedRect();
            Mark mark(QRectF(cells.topLeft() * grid - place, cells.size() * grid));
            appendChildNode(&mark);
            removeChildNode(&mark);
        }
    }

    [[nodiscard]] qreal scale() const noexcept { return m_scale; }

private:
    qreal m_scale;
};

/// The whole picture in the size of its film, which a graphics card scales.
class RenderedFilm final : public QSGSimpleTextureNode
{
public:
    RenderedFilm()
    {
        setOwnsTexture(true);
        setFiltering(QSGTexture::Linear);
    }

    void show(const FilmFrame &frame, FramePicture &picture, QQuickWindow &window, const QRectF &place)
    {
        const QSize size = frame.angle % 180 == 0 ? frame.size : frame.size.transposed();
        picture.setFrame(frame, size);
        if (m_pixels.size() != size)
            m_pixels = QImage(size, QImage::Format_RGB32);
        for (const QRect &change : picture.changes())
            picture.paint(change, m_pixels, {});
        setTexture(window.createTextureFromImage(m_pixels, QQuickWindow::TextureIsOpaque));
        setRect(place);
        QRectF part(QPointF(), place.size().scaled(size, Qt::KeepAspectRatio));
        part.moveCenter(QRectF(QPointF(), size).center());
        setSourceRect(part);
    }

private:
    QImage m_pixels;
};

}

FilmView::FilmView(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void FilmView::setFilm(FilmPlayer *film)
{
    if (m_film == film)
        return;
    if (m_film)
        m_film->disconnect(this);
    m_film = film;
    if (film)
        connect(film, &FilmPlayer::frameChanged, this, &QQuickItem::update);
    update();
    Q_EMIT filmChanged();
}

void FilmView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

QSGNode *FilmView::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!m_film || !m_film->hasFrame() || size().isEmpty())
        return oldNode;
    return isPainted(*window()) ? painted(oldNode) : rendered(oldNode);
}

QSGNode *FilmView::painted(QSGNode *oldNode)
{
    auto *tiles = static_cast<Tiles *>(oldNode);
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    const bool isResized = !tiles || pixels != m_picture.size() || scale != tiles->scale();
    m_picture.setFrame(m_film->frame(), pixels);
    if (isResized) {
        delete tiles;
        return new Tiles(m_picture, *window(), size(), scale);
    }
    tiles->repaintChanges(m_picture, mapToScene({}));
    return tiles;
}

QSGNode *FilmView::rendered(QSGNode *oldNode)
{
    auto *film = oldNode ? static_cast<RenderedFilm *>(oldNode) : new RenderedFilm;
    film->show(m_film->frame(), m_picture, *window(), boundingRect());
    return film;
}

}
