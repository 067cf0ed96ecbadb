#pragma once

#include "Painting.h"

#include <QtGui/QColor>

namespace tomcatto {

/// A dashed rounded outline, for a place where something can be dropped.
class DashedFrame : public tomcatto::Painting
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed FINAL)

public:
    explicit DashedFrame(QQuickItem *parent = nullptr)
        : Painting(parent)
    {
    }

    void paint(QPainter *painter) override;

private:
    QColor m_color = Qt::black;
    qreal m_radius = 12;
};

}
