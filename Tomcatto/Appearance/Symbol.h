#pragma once

#include "SvgArt.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// One of the embedded symbols by its name, such as "pause.fill", in one colour. Decoration only: the control that
/// holds it carries the accessible name. An unknown name is logged once a process and draws nothing.
class Symbol : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    /// Side of the square box in logical pixels; the item takes it as its implicit size.
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged FINAL)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    [[nodiscard]] qreal size() const { return implicitWidth(); }
    void setSize(qreal size);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void sizeChanged();

private:
    QString m_name;
    QColor m_color = Qt::black;
    SvgArt m_art;
};

}
