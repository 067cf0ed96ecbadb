#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// The eared ring around the time: track, arc, two ears and the disc inside. Knows shapes and colours only; `Dial`
/// decides which. The ring's outer diameter is the item's width; the ears stand out `headroom` above it.
class DialPainter : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Part of the ring that is covered, clockwise from the top, 0 to 1.
    Q_PROPERTY(qreal progress MEMBER m_progress WRITE setProgress NOTIFY changed FINAL)
    Q_PROPERTY(QColor track MEMBER m_track WRITE setTrack NOTIFY changed FINAL)
    Q_PROPERTY(QColor arc MEMBER m_arc WRITE setArc NOTIFY changed FINAL)
    Q_PROPERTY(QColor disc MEMBER m_disc WRITE setDisc NOTIFY changed FINAL)
    /// Edge of track and ears, one logical pixel; transparent for none.
    Q_PROPERTY(QColor edge MEMBER m_edge WRITE setEdge NOTIFY changed FINAL)
    /// How far each ear is lit, 0 to 1: an opacity over the unlit ear.
    Q_PROPERTY(qreal rightEar MEMBER m_rightEar WRITE setRightEar NOTIFY changed FINAL)
    Q_PROPERTY(qreal leftEar MEMBER m_leftEar WRITE setLeftEar NOTIFY changed FINAL)
    /// 0: pricked ears of work, 1: low ears at rest.
    Q_PROPERTY(qreal rest MEMBER m_rest WRITE setRest NOTIFY changed FINAL)
    /// Room above the ring that the item's height holds beyond its width, in logical pixels.
    Q_PROPERTY(qreal headroom READ headroom NOTIFY changed FINAL)

public:
    explicit DialPainter(QQuickItem *parent = nullptr);

    void setProgress(qreal progress) { assign(m_progress, qBound(0.0, progress, 1.0)); }
    void setTrack(const QColor &color) { assign(m_track, color); }
    void setArc(const QColor &color) { assign(m_arc, color); }
    void setDisc(const QColor &color) { assign(m_disc, color); }
    void setEdge(const QColor &color) { assign(m_edge, color); }
    void setRightEar(qreal lit) { assign(m_rightEar, lit); }
    void setLeftEar(qreal lit) { assign(m_leftEar, lit); }
    void setRest(qreal rest) { assign(m_rest, rest); }
    [[nodiscard]] qreal headroom() const { return width() * 0.03; }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    template<typename Value>
    void assign(Value &member, const Value &value)
    {
        if (member != value) {
            member = value;
            update();
            Q_EMIT changed();
        }
    }

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
