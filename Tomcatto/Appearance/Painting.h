#pragma once

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickPaintedItem>

namespace tomcatto {

/// What is painted with smooth edges, anew whenever one of its properties has changed. Classes name it with its
/// namespace, else what tells qmllint of them does not find it.
class Painting : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ANONYMOUS

Q_SIGNALS:
    /// Of every property: what announces with it needs no setter.
    void changed();

protected:
    explicit Painting(QQuickItem *parent)
        : QQuickPaintedItem(parent)
    {
        setAntialiasing(true);
        connect(this, &Painting::changed, this, [this] { update(); });
    }
};

}
