#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// The countdown's plate with two ears on its shoulders, in one path. Drawn on a grid of 248 x 91, ears included, and
/// scaled to the item.
class ChipShape : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor fill MEMBER m_fill NOTIFY changed FINAL)
    Q_PROPERTY(QColor line MEMBER m_line NOTIFY changed FINAL)

public:
    explicit ChipShape(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    QColor m_fill = Qt::black;
    QColor m_line = Qt::transparent;
};

}
