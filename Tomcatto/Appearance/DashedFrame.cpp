#include "DashedFrame.h"

#include <QtGui/QPainter>

namespace tomcatto {

namespace {

constexpr qreal lineWidth = 1.5;
constexpr qreal dash = 6;
constexpr qreal pause = 4;

}

void DashedFrame::paint(QPainter *painter)
{
    constexpr qreal inset = lineWidth / 2;
    QPen pen(m_color, lineWidth, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({dash / lineWidth, pause / lineWidth});
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(boundingRect().adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
}

}
