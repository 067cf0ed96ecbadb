#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// A plain ring that fills clockwise from the top, for a download under way.
class ProgressRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    /// 0 to 1.
    Q_PROPERTY(qreal progress MEMBER m_progress WRITE setProgress NOTIFY changed FINAL)
    Q_PROPERTY(QColor color MEMBER m_color WRITE setColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor track MEMBER m_track WRITE setTrack NOTIFY changed FINAL)
    Q_PROPERTY(qreal thickness MEMBER m_thickness WRITE setThickness NOTIFY changed FINAL)

public:
    explicit ProgressRing(QQuickItem *parent = nullptr);

    void setProgress(qreal progress) { assign(m_progress, qBound(0.0, progress, 1.0)); }
    void setColor(const QColor &color) { assign(m_color, color); }
    void setTrack(const QColor &track) { assign(m_track, track); }
    void setThickness(qreal thickness) { assign(m_thickness, thickness); }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

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

    qreal m_progress = 0;
    QColor m_color = Qt::black;
    QColor m_track = Qt::lightGray;
    qreal m_thickness = 4;
};

}
