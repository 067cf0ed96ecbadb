#pragma once

#include "DialDrawing.h"
#include "Painting.h"

namespace tomcatto {

/// A `DialDrawing` as an item; `Dial` decides its colours. The ring's outer diameter is the item's width; the ears
/// stand out `headroom` above it.
class DialPainter : public tomcatto::Painting, private DialDrawing
{
    Q_OBJECT
    QML_ELEMENT
    /// Part of the ring that is covered, clockwise from the top, 0 to 1.
    Q_PROPERTY(qreal progress MEMBER progress NOTIFY changed FINAL)
    Q_PROPERTY(QColor track MEMBER track NOTIFY changed FINAL)
    Q_PROPERTY(QColor arc MEMBER arc NOTIFY changed FINAL)
    Q_PROPERTY(QColor disc MEMBER disc NOTIFY changed FINAL)
    /// Edge of track and ears, one logical pixel; transparent for none.
    Q_PROPERTY(QColor edge MEMBER edge NOTIFY changed FINAL)
    /// How far each ear is lit, 0 to 1: an opacity over the unlit ear.
    Q_PROPERTY(qreal rightEar MEMBER rightEar NOTIFY changed FINAL)
    Q_PROPERTY(qreal leftEar MEMBER leftEar NOTIFY changed FINAL)
    /// 0: pricked ears of work, 1: low ears at rest.
    Q_PROPERTY(qreal rest MEMBER rest NOTIFY changed FINAL)
    /// Room above the ring that the item's height holds beyond its width, in logical pixels.
    Q_PROPERTY(qreal headroom READ headroom NOTIFY changed FINAL)

public:
    explicit DialPainter(QQuickItem *parent = nullptr);

    [[nodiscard]] qreal headroom() const { return width() * 0.03; }

    void paint(QPainter *painter) override;

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
};

}
