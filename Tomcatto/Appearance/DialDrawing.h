#pragma once

#include <QtGui/QColor>

class QPainter;

namespace tomcatto {

/// The eared ring around the time: track, arc, two ears and the disc inside. Knows shapes and colours only.
struct DialDrawing
{
    /// Part of the ring that is covered, clockwise from the top, 0 to 1.
    qreal progress = 0;
    QColor track = Qt::lightGray;
    QColor arc = Qt::darkGray;
    QColor disc = Qt::white;
    /// Edge of track and ears, one logical pixel; transparent for none.
    QColor edge = Qt::transparent;
    /// How far each ear is lit, 0 to 1: an opacity over the unlit ear.
    qreal rightEar = 0;
    qreal leftEar = 0;
    /// 0: pricked ears of work, 1: low ears at rest.
    qreal rest = 0;

    /// Paints with the ring's centre at the painter's origin. @param width the ring's outer diameter
    void paint(QPainter &painter, qreal width) const;
};

}
