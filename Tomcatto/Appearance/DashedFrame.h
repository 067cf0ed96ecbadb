#pragma once

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// A dashed rounded outline, for a place where something can be dropped.
class DashedFrame : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)

public:
    explicit DashedFrame(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    [[nodiscard]] qreal radius() const noexcept { return m_radius; }
    void setRadius(qreal radius);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void colorChanged();
    void radiusChanged();

private:
    QColor m_color = Qt::black;
    qreal m_radius = 12;
};

}
