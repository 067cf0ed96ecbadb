#include "Scrim.h"

#include "PaintedPixels.h"

#include <array>
#include <cstring>
#include <QtQuick/QSGGeometryNode>
#include <QtQuick/QSGVertexColorMaterial>

namespace tomcatto {
namespace {

constexpr size_t block = 32;

/// Puts a colour, whose share is multiplied in, over so many bytes of pixels.
void cover(uchar *bytes, size_t count, QRgb colour)
{
    std::array<uchar, block> source{};
    for (size_t at = 0; at < block; at += sizeof colour)
        std::memcpy(&source[at], &colour, sizeof colour);
    const auto rest = static_cast<quint16>(255 - qAlpha(colour));
    const auto mixed = [rest](uchar below, uchar above) {
        const auto product = static_cast<quint16>(below * rest + 128);
        return static_cast<uchar>(above + ((product + (product >> 8)) >> 8));
    };
    for (; count >= block; count -= block, bytes += block) {
        for (size_t at = 0; at < block; ++at)
            bytes[at] = mixed(bytes[at], source[at]);
    }
    for (size_t at = 0; at < count; ++at)
        bytes[at] = mixed(bytes[at], source[at]);
}

/// The share at a place from 0 to 1.
qreal shareAt(const QList<qreal> &shares, qreal place)
{
    for (qsizetype next = 2; next + 1 < shares.size(); next += 2) {
        if (place > shares[next])
            continue;
        const qreal way = (place - shares[next - 2]) / (shares[next] - shares[next - 2]);
        return shares[next - 1] + way * (shares[next + 1] - shares[next - 1]);
    }
    return shares.isEmpty() ? 0 : shares.last();
}

class PaintedScrim final : public QSGRenderNode
{
public:
    explicit PaintedScrim(QQuickWindow &window)
        : m_window(window)
    {
    }

    void set(QSizeF size, const QColor &colour, const QList<qreal> &shares)
    {
        m_size = size;
        m_colour = colour;
        m_shares = shares;
        m_colours.clear();
        markDirty(DirtyMaterial);
    }

    void render(const RenderState *state) override
    {
        const qreal scale = m_window.effectiveDevicePixelRatio();
        const PaintedPixels pixels = PaintedPixels::of(m_window, *this, *state, scale);
        const QRect mine(QPoint(), (m_size * scale).toSize());
        mixColours(mine.height());
        for (const QRect &asked : pixels.asked &mine) {
            for (int row = asked.top(); row <= asked.bottom(); ++row) {
                uchar *line = pixels.target->scanLine(pixels.origin.y() + row);
                cover(line + (pixels.origin.x() + asked.left()) * qsizetype{4}, static_cast<size_t>(asked.width()) * 4,
                      m_colours.at(row));
            }
        }
    }

    [[nodiscard]] StateFlags changedStates() const override { return {}; }
    [[nodiscard]] RenderingFlags flags() const override { return BoundedRectRendering; }
    [[nodiscard]] QRectF rect() const override { return {QPointF(), m_size}; }

private:
    /// Of each row, kept for the many small areas that a film asks for.
    void mixColours(int rows)
    {
        const qreal opacity = inheritedOpacity();
        if (m_colours.size() == rows && m_mixedOpacity == opacity)
            return;
        m_colours.clear();
        m_mixedOpacity = opacity;
        for (int row = 0; row < rows; ++row) {
            QColor colour = m_colour;
            colour.setAlphaF(static_cast<float>(shareAt(m_shares, (row + 0.5) / rows) * opacity));
            m_colours.append(qPremultiply(colour.rgba()));
        }
    }

    QQuickWindow &m_window;
    QSizeF m_size;
    QColor m_colour;
    QList<qreal> m_shares;
    QList<QRgb> m_colours;
    qreal m_mixedOpacity = 0;
};

/// The same for a graphics card.
class RenderedScrim final : public QSGGeometryNode
{
public:
    RenderedScrim()
    {
        setMaterial(&m_material);
        setGeometry(&m_geometry);
        m_geometry.setDrawingMode(QSGGeometry::DrawTriangleStrip);
    }

    void set(QSizeF size, const QColor &colour, const QList<qreal> &shares)
    {
        m_geometry.allocate(static_cast<int>(shares.size()));
        auto *vertex = m_geometry.vertexDataAsColoredPoint2D();
        for (qsizetype at = 0; at + 1 < shares.size(); at += 2) {
            QColor mixed = colour;
            mixed.setAlphaF(static_cast<float>(shares[at + 1]));
            const QRgb pixel = qPremultiply(mixed.rgba());
            for (const qreal x : {0.0, size.width()})
                (vertex++)->set(float(x), float(size.height() * shares[at]), uchar(qRed(pixel)), uchar(qGreen(pixel)),
                                uchar(qBlue(pixel)), uchar(qAlpha(pixel)));
        }
        markDirty(DirtyGeometry);
    }

private:
    QSGGeometry m_geometry{QSGGeometry::defaultAttributes_ColoredPoint2D(), 0};
    QSGVertexColorMaterial m_material;
};

}

Scrim::Scrim(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Scrim::changed, this, &QQuickItem::update);
}

void Scrim::setColor(const QColor &color)
{
    if (std::exchange(m_color, color) != color)
        Q_EMIT changed();
}

void Scrim::setShares(const QList<qreal> &shares)
{
    if (std::exchange(m_shares, shares) != shares)
        Q_EMIT changed();
}

void Scrim::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

QSGNode *Scrim::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    const auto shown = [&]<typename Node>(Node *node) {
        node->set(size(), m_color, m_shares);
        return node;
    };
    if (isPainted(*window()))
        return shown(oldNode ? static_cast<PaintedScrim *>(oldNode) : new PaintedScrim(*window()));
    return shown(oldNode ? static_cast<RenderedScrim *>(oldNode) : new RenderedScrim);
}

}
