#pragma once

#include <QtCore/QList>
#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

namespace tomcatto {

/// Darkens what is below it towards a colour, by a share that changes from top to bottom. Made for what lies over a
/// film: a gradient of the toolkit is set up anew for each piece of each frame.
class Scrim : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed FINAL)
    /// Pairs of a place, from 0 at the top to 1, in their order, and the colour's share there, from 0 to 1.
    Q_PROPERTY(QList<qreal> shares READ shares WRITE setShares NOTIFY changed FINAL)

public:
    explicit Scrim(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    [[nodiscard]] QList<qreal> shares() const { return m_shares; }
    void setShares(const QList<qreal> &shares);

Q_SIGNALS:
    void changed();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    QColor m_color;
    QList<qreal> m_shares;
};

}
