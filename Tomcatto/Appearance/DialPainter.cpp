#include "DialPainter.h"

#include <QtGui/QPainter>

namespace tomcatto {

DialPainter::DialPainter(QQuickItem *parent)
    : Painting(parent)
{
}

void DialPainter::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    Painting::geometryChange(newGeometry, oldGeometry);
    if (!qFuzzyCompare(newGeometry.width(), oldGeometry.width())) {
        Q_EMIT changed();
    }
}

void DialPainter::paint(QPainter *painter)
{
    if (width() <= 0) {
        return;
    }
    painter->translate(width() / 2, headroom() + width() / 2);
    DialDrawing::paint(*painter, width());
}

}
