#pragma once

#include "Painting.h"
#include "SvgArt.h"

namespace tomcatto {

/// One of the embedded drawings in a square box.
class Drawing : public tomcatto::Painting
{
    Q_OBJECT
    QML_ANONYMOUS
    /// Stands in for `currentColor`.
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed FINAL)
    /// Side of the box in logical pixels; the item takes it as its implicit size.
    Q_PROPERTY(qreal size READ implicitWidth WRITE setSize NOTIFY changed FINAL)

public:
    void setSize(qreal size);
    void paint(QPainter *painter) override;

protected:
    Drawing(qreal size, QQuickItem *parent);

    /// Where the drawing is, below ":/tomcatto/".
    [[nodiscard]] virtual QString resource() const = 0;
    /// Takes the drawing of now. @return false where there is none
    bool load();

private:
    QColor m_color = Qt::black;
    SvgArt m_art;
    QString m_loaded;
    bool m_isFound = false;
};

}
