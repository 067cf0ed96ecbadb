#pragma once

#include "Painting.h"

#include <QtGui/QColor>

namespace tomcatto {

/// The logo's silhouette without a face: one round of a set, filled or as an outline.
class CatMarker : public tomcatto::Painting
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor fill MEMBER m_fill NOTIFY changed FINAL)
    /// Transparent: the whole silhouette takes the fill.
    Q_PROPERTY(QColor outline MEMBER m_outline NOTIFY changed FINAL)

public:
    explicit CatMarker(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

private:
    QColor m_fill = Qt::transparent;
    QColor m_outline = Qt::transparent;
};

}
