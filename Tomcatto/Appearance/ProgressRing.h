#pragma once

#include "Painting.h"

#include <QtGui/QColor>

namespace tomcatto {

/// A plain ring that fills clockwise from the top, for a download under way.
class ProgressRing : public tomcatto::Painting
{
    Q_OBJECT
    QML_ELEMENT
    /// 0 to 1.
    Q_PROPERTY(qreal progress MEMBER m_progress NOTIFY changed FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed FINAL)
    Q_PROPERTY(QColor track MEMBER m_track NOTIFY changed FINAL)
    Q_PROPERTY(qreal thickness MEMBER m_thickness NOTIFY changed FINAL)

public:
    explicit ProgressRing(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

private:
    qreal m_progress = 0;
    QColor m_color = Qt::black;
    QColor m_track = Qt::lightGray;
    qreal m_thickness = 4;
};

}
