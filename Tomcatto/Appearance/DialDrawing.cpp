#include "DialDrawing.h"

#include <cmath>
#include <numbers>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace tomcatto {

namespace {

// The drawing's own measures; the painter is scaled from them. Angles in degrees, clockwise from the top.
constexpr qreal diameter = 200;
constexpr qreal ringWidth = 10;
constexpr qreal earStroke = 8;
constexpr qreal earRadius = diameter / 2 - 4;
constexpr qreal earDepth = 8;

struct Ear
{
    qreal outer;
    qreal tip;
    qreal tipHeight;
    qreal inner;
};

constexpr Ear pricked{62, 35, 27, 17};
constexpr Ear resting{68, 47, 18, 28};

Ear mixed(qreal rest)
{
    return {std::lerp(pricked.outer, resting.outer, rest), std::lerp(pricked.tip, resting.tip, rest),
            std::lerp(pricked.tipHeight, resting.tipHeight, rest), std::lerp(pricked.inner, resting.inner, rest)};
}

QPointF polar(qreal radius, qreal degrees)
{
    const qreal angle = degrees * std::numbers::pi / 180;
    return {radius * std::sin(angle), -radius * std::cos(angle)};
}

/// One unit clockwise along the circle.
QPointF tangent(qreal degrees)
{
    const qreal angle = degrees * std::numbers::pi / 180;
    return {std::cos(angle), std::sin(angle)};
}

QPainterPath rightEarPath(qreal rest)
{
    constexpr qreal outerBend = 15;
    constexpr qreal innerBend = 4.5;
    const Ear ear = mixed(rest);
    const QPointF start = polar(earRadius, ear.outer);
    const QPointF end = polar(earRadius, ear.inner);
    QPainterPath path(start);
    path.quadTo(start - outerBend * tangent(ear.outer), polar(earRadius + ear.tipHeight, ear.tip));
    path.quadTo(end + innerBend * tangent(ear.inner), end);
    path.lineTo(polar(earRadius - earDepth, ear.inner));
    path.lineTo(polar(earRadius - earDepth, ear.outer));
    path.closeSubpath();
    return path;
}

/// Fill and stroke of an ear as one shape: a half-lit ear must not show where they overlap.
QPainterPath earPath(bool right, qreal rest)
{
    const QPainterPath path = rightEarPath(rest);
    const QPainterPathStroker stroker(QPen(Qt::black, earStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPainterPath whole = path.united(stroker.createStroke(path));
    return right ? whole : QTransform::fromScale(-1, 1).map(whole);
}

QColor faded(QColor color, qreal opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

void paintRing(QPainter &painter, const DialDrawing &dial)
{
    constexpr qreal radius = (diameter - ringWidth) / 2;
    const QRectF box(-radius, -radius, 2 * radius, 2 * radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(dial.track, ringWidth));
    painter.drawEllipse(box);
    if (dial.progress >= 1) {
        painter.setPen(QPen(dial.arc, ringWidth));
        painter.drawEllipse(box);
    } else if (dial.progress > 0) {
        painter.setPen(QPen(dial.arc, ringWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(box, 90 * 16, static_cast<int>(std::lround(-360 * 16 * dial.progress)));
    }
}

}

void DialDrawing::paint(QPainter &painter, qreal width) const
{
    const qreal scale = width / diameter;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);

    for (const bool right : {true, false}) {
        painter.fillPath(earPath(right, rest), track);
    }
    paintRing(painter, *this);
    for (const bool right : {true, false}) {
        const qreal lit = right ? rightEar : leftEar;
        if (lit > 0) {
            painter.fillPath(earPath(right, rest), faded(arc, lit));
        }
    }
    constexpr qreal inside = diameter / 2 - ringWidth;
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    painter.drawEllipse(QPointF(), inside, inside);
    if (edge.alpha() > 0) {
        QPainterPath outline;
        outline.addEllipse(QPointF(), diameter / 2 - 0.5 / scale, diameter / 2 - 0.5 / scale);
        outline = outline.united(earPath(true, rest)).united(earPath(false, rest));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(edge, 1 / scale));
        painter.drawPath(outline);
        painter.drawEllipse(QPointF(), inside, inside);
    }
}

}
