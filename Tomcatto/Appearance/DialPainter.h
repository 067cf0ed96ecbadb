#pragma once

#include "Painting.h"

#include <QtGui/QColor>

namespace tomcatto {

/// The eared ring around the time: track, arc, two ears and the disc inside. Knows shapes and colours only; `Dial`
/// decides which. The ring's outer diameter is the item's width; the ears stand out `headroom` above it.
class DialPainter : public tomcatto::Painting
{
    Q_OBJECT
    QML_ELEMENT
    /// Part of the ring that is covered, clockwise from the top, 0 to 1.
    Q_PROPERTY(qreal progress MEMBER m_progress NOTIFY changed FINAL)
    Q_PROPERTY(QColor track MEMBER m_track NOTIFY changed FINAL)
    Q_PROPERTY(QColor arc MEMBER m_arc NOTIFY changed FINAL)
    Q_PROPERTY(QColor disc MEMBER m_disc NOTIFY changed FINAL)
    /// Edge of track and ears, one logical pixel; transparent for none.
    Q_PROPERTY(QColor edge MEMBER m_edge NOTIFY changed FINAL)
    /// How far each ear is lit, 0 to 1: an opacity over the unlit ear.
    Q_PROPERTY(qreal rightEar MEMBER m_rightEar NOTIFY changed FINAL)
    Q_PROPERTY(qreal leftEar MEMBER m_leftEar NOTIFY changed FINAL)
    /// 0: pricked ears of work, 1: low ears at rest.
    Q_PROPERTY(qreal rest MEMBER m_rest NOTIFY changed FINAL)
    /// Room above the ring that the item's height holds beyond its width, in logical pixels.
    Q_PROPERTY(qreal headroom READ headroom NOTIFY changed FINAL)

public:
    explicit DialPainter(QQuickItem *parent = nullptr);

    [[nodiscard]] qreal headroom() const { return width() * 0.03; }

    void paint(QPainter *painter) override;

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void paintRing(QPainter &painter) const;

    qreal m_progress = 0;
    QColor m_track = Qt::lightGray;
    QColor m_arc = Qt::darkGray;
    QColor m_disc = Qt::white;
    QColor m_edge = Qt::transparent;
    qreal m_rightEar = 0;
    qreal m_leftEar = 0;
    qreal m_rest = 0;
};

}
