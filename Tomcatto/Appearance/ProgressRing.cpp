#include "ProgressRing.h"

#include <algorithm>
#include <cmath>
#include <QtGui/QPainter>

namespace tomcatto {

ProgressRing::ProgressRing(QQuickItem *parent)
    : Painting(parent)
{
    setImplicitSize(40, 40);
}

void ProgressRing::paint(QPainter *painter)
{
    const qreal inset = m_thickness / 2;
    const QRectF box = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_track, m_thickness));
    painter->drawEllipse(box);
    if (m_progress > 0) {
        painter->setPen(QPen(m_color, m_thickness, Qt::SolidLine, Qt::FlatCap));
        painter->drawArc(box, 90 * 16, static_cast<int>(std::lround(-360 * 16 * std::min(m_progress, 1.0))));
    }
}

}
