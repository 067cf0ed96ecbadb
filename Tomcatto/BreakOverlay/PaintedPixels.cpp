#include "PaintedPixels.h"

#include <QtGui/QPainter>
#include <QtQuick/QSGRendererInterface>

namespace tomcatto {
namespace {

/// Those that what lies above is painted to as well, by the painter's own way to round.
QRegion pixelsOf(const QRegion &region, qreal scale)
{
    const QTransform scaling = QTransform::fromScale(scale, scale);
    return region.rectCount() == 1 ? QRegion(scaling.mapRect(region.boundingRect())) : scaling.map(region);
}

}

bool isPainted(const QQuickWindow &window)
{
    return window.rendererInterface()->graphicsApi() == QSGRendererInterface::Software;
}

PaintedPixels PaintedPixels::of(QQuickWindow &window, const QSGRenderNode &node,
                                const QSGRenderNode::RenderState &state, qreal scale)
{
    void *resource = window.rendererInterface()->getResource(&window, QSGRendererInterface::PainterResource);
    auto *painter = static_cast<QPainter *>(resource);
    if (!painter || painter->device()->devType() != QInternal::Image)
        return {};
    auto *target = static_cast<QImage *>(painter->device());
    const QPoint origin = (node.matrix()->map(QPointF()) * scale).toPoint();
    const QRegion asked = pixelsOf(*state.clipRegion(), scale) & target->rect();
    return {target, origin, asked.translated(-origin)};
}

}
