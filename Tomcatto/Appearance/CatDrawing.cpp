#include "CatDrawing.h"

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

void paintCat(QPainter &painter, const QRectF &box, const QColor &fill, const QColor &outline)
{
    const qreal side = std::min(box.width(), box.height());
    if (side <= 0) {
        return;
    }
    painter.save();
    const qreal scale = side / grid;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center() - QPointF(side, side) / 2);
    painter.scale(scale, scale);
    const bool outlined = outline.alpha() > 0;
    const qreal stroke = outlined ? outlineWidth / scale : cornerStroke;
    painter.setPen(QPen(outlined ? outline : fill, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(fill);
    // An outline thicker than the corner stroke moves inwards, so that all markers are equally large.
    const qreal inward = (pathWidth + cornerStroke - stroke) / pathWidth;
    painter.translate(centre);
    painter.scale(inward, inward);
    painter.translate(-centre);
    painter.drawPath(silhouette());
    painter.restore();
}

}
