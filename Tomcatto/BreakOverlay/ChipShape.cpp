#include "ChipShape.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {
namespace {

constexpr QSizeF grid(248, 91);
constexpr double radius = 38;

/// The left half from the middle of the upper edge to the middle of the lower one.
QPainterPath leftHalf()
{
    QPainterPath path(QPointF(grid.width() / 2, 15));
    path.lineTo(54, 15);
    path.cubicTo(42, 15, 29, 5, 17, 0.8);
    path.cubicTo(13.5, -0.8, 10, 1.2, 9.4, 6);
    path.cubicTo(7.6, 29, 0, 37, 0, 53);
    path.cubicTo(0, 74, 17, 91, radius, 91);
    path.lineTo(grid.width() / 2, 91);
    return path;
}

QPainterPath outline()
{
    const QPainterPath left = leftHalf();
    const QTransform mirror(-1, 0, 0, 1, grid.width(), 0);
    QPainterPath path = left;
    path.connectPath(mirror.map(left).toReversed());
    path.closeSubpath();
    return path;
}

}

ChipShape::ChipShape(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &ChipShape::changed, this, [this] { update(); });
    setImplicitSize(grid.width(), grid.height());
}

void ChipShape::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    // Half a pixel inside, so that the line is not cut.
    painter->translate(0.5, 0.5);
    painter->scale((width() - 1) / grid.width(), (height() - 1) / grid.height());
    QPen pen(m_line, 1);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->setBrush(m_fill);
    painter->drawPath(outline());
}

}
