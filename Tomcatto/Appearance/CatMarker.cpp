#include "CatMarker.h"

#include <algorithm>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {

namespace {

constexpr qreal grid = 24;
// The silhouette is the centre line of a stroke this thick, which rounds its corners.
constexpr qreal cornerStroke = 1.6;
constexpr qreal outlineWidth = 1.5;
constexpr qreal pathWidth = 18.7;
constexpr QPointF centre(12, 12.45);

QPainterPath silhouette()
{
    QPainterPath path(QPointF(5.2, 4.2));
    path.cubicTo(6.9, 4.7, 8.5, 5.7, 9.7, 7.0);
    path.cubicTo(11.2, 6.7, 12.8, 6.7, 14.3, 7.0);
    path.cubicTo(15.5, 5.7, 17.1, 4.7, 18.8, 4.2);
    path.cubicTo(19.5, 6.1, 19.95, 7.9, 20.3, 9.7);
    path.cubicTo(21.0, 11.3, 21.35, 12.7, 21.3, 14.1);
    path.cubicTo(21.1, 18.3, 17.0, 20.7, 12, 20.7);
    path.cubicTo(7.0, 20.7, 2.9, 18.3, 2.7, 14.1);
    path.cubicTo(2.65, 12.7, 3.0, 11.3, 3.7, 9.7);
    path.cubicTo(4.05, 7.9, 4.5, 6.1, 5.2, 4.2);
    path.closeSubpath();
    return path;
}

}

CatMarker::CatMarker(QQuickItem *parent)
    : Painting(parent)
{
    setImplicitSize(15, 15);
}

void CatMarker::paint(QPainter *painter)
{
    const qreal side = std::min(width(), height());
    if (side <= 0) {
        return;
    }
    const qreal scale = side / grid;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate((width() - side) / 2, (height() - side) / 2);
    painter->scale(scale, scale);
    const bool outlined = m_outline.alpha() > 0;
    const qreal stroke = outlined ? outlineWidth / scale : cornerStroke;
    painter->setPen(QPen(outlined ? m_outline : m_fill, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(m_fill);
    // An outline thicker than the corner stroke moves inwards, so that all markers are equally large.
    const qreal inward = (pathWidth + cornerStroke - stroke) / pathWidth;
    painter->translate(centre);
    painter->scale(inward, inward);
    painter->translate(-centre);
    painter->drawPath(silhouette());
}

}
