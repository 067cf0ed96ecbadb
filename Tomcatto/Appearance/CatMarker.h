#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// The logo's silhouette without a face: one round of a set, filled or as an outline.
class CatMarker : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor fill READ fill WRITE setFill NOTIFY changed FINAL)
    /// Transparent: the whole silhouette takes the fill.
    Q_PROPERTY(QColor outline READ outline WRITE setOutline NOTIFY changed FINAL)

public:
    explicit CatMarker(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor fill() const { return m_fill; }
    void setFill(const QColor &fill);
    [[nodiscard]] QColor outline() const { return m_outline; }
    void setOutline(const QColor &outline);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    QColor m_fill = Qt::transparent;
    QColor m_outline = Qt::transparent;
};

}
