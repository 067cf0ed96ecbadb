#pragma once

#include <QtCore/QRectF>
#include <QtGui/QColor>

class QPainter;

namespace tomcatto {

/// Paints the logo's silhouette without a face in the middle of a box.
/// @param outline transparent: the whole silhouette takes the fill
void paintCat(QPainter &painter, const QRectF &box, const QColor &fill, const QColor &outline);

}
