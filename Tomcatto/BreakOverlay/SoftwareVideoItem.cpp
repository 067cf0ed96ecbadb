#include "SoftwareVideoItem.h"

#include <QtGui/QPainter>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGRendererInterface>
#include <QtQuick/QSGRenderNode>

namespace tomcatto {
namespace {

/// Device pixels of a tile: few tiles, for each costs something, but small enough that most of them stand still in a
/// quiet film. Whole blocks of what draws them.
constexpr QSize tileSize{240, 60};

/// One part of a picture, painted straight into the window's memory.
class Tile final : public QSGRenderNode
{
public:
    /// @param scale device pixels of one of the window's
    Tile(FramePicture &picture, QQuickWindow &window, const QRect &pixels, qreal scale)
        : m_picture(picture)
        , m_window(window)
        , m_pixels(pixels)
        , m_scale(scale)
    {
        setFlag(OwnedByParent);
    }

    [[nodiscard]] const QRect &pixels() const noexcept { return m_pixels; }

    void render(const RenderState *state) override
    {
        void *resource = m_window.rendererInterface()->getResource(&m_window, QSGRendererInterface::PainterResource);
        auto *painter = static_cast<QPainter *>(resource);
        auto *target = painter && painter->device()->devType() == QInternal::Image
                           ? static_cast<QImage *>(painter->device())
                           : nullptr;
        if (!target)
            return;
        const QPoint origin = (matrix()->map(QPointF()) * m_scale).toPoint();
        for (const QRect &asked : *state->clipRegion()) {
            const QRect pixels = QRectF(asked.topLeft() * m_scale, asked.size() * m_scale).toAlignedRect();
            const QRect area = pixels.translated(-origin) & m_pixels & target->rect().translated(-origin);
            if (!area.isEmpty())
                m_picture.paint(area, *target, origin);
        }
    }

    [[nodiscard]] StateFlags changedStates() const override { return {}; }
    [[nodiscard]] RenderingFlags flags() const override { return BoundedRectRendering | OpaqueRendering; }
    [[nodiscard]] QRectF rect() const override
    {
        return {QPointF(m_pixels.topLeft()) / m_scale, QSizeF(m_pixels.size()) / m_scale};
    }

private:
    FramePicture &m_picture;
    QQuickWindow &m_window;
    QRect m_pixels;
    qreal m_scale;
};

/// All tiles of a picture.
class Tiles final : public QSGNode
{
public:
    Tiles(FramePicture &picture, QQuickWindow &window, qreal scale)
        : m_scale(scale)
    {
        const QRect whole(QPoint(), picture.size());
        for (int top = 0; top < whole.height(); top += tileSize.height()) {
            std::vector<Tile *> row;
            for (int left = 0; left < whole.width(); left += tileSize.width()) {
                row.push_back(new Tile(picture, window, QRect(QPoint(left, top), tileSize) & whole, scale));
                appendChildNode(row.back());
            }
            m_rows.push_back(std::move(row));
        }
    }

    void repaintChanges(const FramePicture &picture)
    {
        for (const std::vector<Tile *> &row : m_rows) {
            std::vector<QRect> areas;
            areas.reserve(row.size());
            for (const Tile *tile : row)
                areas.push_back(tile->pixels());
            const std::vector<bool> changes = picture.changes(areas);
            for (size_t index = 0; index < row.size(); ++index) {
                if (changes[index])
                    row[index]->markDirty(DirtyMaterial);
            }
        }
    }

    [[nodiscard]] qreal scale() const noexcept { return m_scale; }

private:
    // This node's children.
    std::vector<std::vector<Tile *>> m_rows;
    qreal m_scale;
};

}

SoftwareVideoItem::SoftwareVideoItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void SoftwareVideoItem::setFilm(FilmPlayer *film)
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

void SoftwareVideoItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

QSGNode *SoftwareVideoItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *tiles = static_cast<Tiles *>(oldNode);
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    if (!m_film || !m_film->hasFrame() || pixels.isEmpty())
        return tiles;
    const bool isResized = !tiles || pixels != m_picture.size() || scale != tiles->scale();
    m_picture.setFrame(m_film->frame(), pixels);
    if (isResized) {
        delete tiles;
        return new Tiles(m_picture, *window(), scale);
    }
    tiles->repaintChanges(m_picture);
    return tiles;
}

}
