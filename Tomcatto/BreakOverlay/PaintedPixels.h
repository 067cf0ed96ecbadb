#pragma once

#include <QtGui/QImage>
#include <QtGui/QRegion>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGRenderNode>

namespace tomcatto {

/// Whether a window is drawn without a graphics card, into its own memory.
[[nodiscard]] bool isPainted(const QQuickWindow &window);

/// What a node paints to where there is no graphics card: the window's own memory, and which of it is asked for.
struct PaintedPixels
{
    /// Pixels of 32 bits; none where the window is not drawn that way.
    QImage *target = nullptr;
    /// The place of the node's item there.
    QPoint origin;
    /// The pixels that are asked for, from the origin on.
    QRegion asked;

    /// @param scale device pixels of one of the window's units
    [[nodiscard]] static PaintedPixels of(QQuickWindow &window, const QSGRenderNode &node,
                                          const QSGRenderNode::RenderState &state, qreal scale);
};

}
