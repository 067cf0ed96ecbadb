#pragma once

#include "Platform/Views/ViewMessage.h"

#include <QtCore/QObject>

namespace tomcatto {

class ObjectPublisher;

/// Watches the signals of one published object, whatever its class. Main thread only.
class ObjectRelay final : public QObject
{
public:
    ObjectRelay(ObjectPublisher &publisher, QObject &source, int number);

    /// Hears each signal of the source in the place of a method of its own.
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

    [[nodiscard]] QObject &source() const { return m_source; }
    [[nodiscard]] const ObjectShape &shape() const { return m_shape; }
    /// All of them, in the order of the shape.
    [[nodiscard]] QVariantList values();
    /// Sends the properties whose signals have told since.
    void flush();

private:
    void readShape();
    void hear(int method, void **arguments);

    ObjectPublisher &m_publisher;
    QObject &m_source;
    int m_number;
    ObjectShape m_shape;
    // In the order of the shape: the numbers that the object's class has for them.
    QList<int> m_properties;
    QList<int> m_signals;
    // In the order in which they told.
    QVariantList m_told;
};

}
