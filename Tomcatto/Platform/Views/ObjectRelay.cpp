#include "Platform/Views/ObjectRelay.h"

#include "Platform/Views/ObjectPublisher.h"

#include <algorithm>
#include <QtCore/QAbstractItemModel>
#include <QtCore/QMetaProperty>
#include <set>

namespace tomcatto {

namespace {

/// What the other process knows a type as: by its own name, or as any value.
QByteArray typeName(QMetaType type)
{
    if (type.flags().testFlag(QMetaType::PointerToQObject)) {
        const QMetaObject *const pointed = type.metaObject();
        return pointed && pointed->inherits(&QAbstractItemModel::staticMetaObject) ? "QAbstractItemModel*" : "QObject*";
    }
    if (type.flags().testFlag(QMetaType::IsEnumeration))
        return "int";
    return type.id() > 0 && type.id() < QMetaType::User ? type.name() : "QVariant";
}

QByteArray signature(const QMetaMethod &method, bool isNotice)
{
    QByteArrayList types;
    for (int at = 0; !isNotice && at < method.parameterCount(); ++at)
        types << typeName(method.parameterMetaType(at));
    return method.name() + '(' + types.join(',') + ')';
}

}

ObjectRelay::ObjectRelay(ObjectPublisher &publisher, QObject &source, int number)
    : m_publisher(publisher)
    , m_source(source)
    , m_number(number)
{
    readShape();
    const int own = QObject::staticMetaObject.methodCount();
    for (const int method : std::as_const(m_signals))
        QMetaObject::connect(&source, method, this, own + method, Qt::DirectConnection);
}

void ObjectRelay::readShape()
{
    const QMetaObject &type = *m_source.metaObject();
    m_shape.name = type.className();
    std::set<int> notices;
    for (int at = QObject::staticMetaObject.propertyCount(); at < type.propertyCount(); ++at)
        notices.insert(type.property(at).notifySignalIndex());
    for (int at = QObject::staticMetaObject.methodCount(); at < type.methodCount(); ++at) {
        const QMetaMethod method = type.method(at);
        if (method.attributes() & QMetaMethod::Cloned)
            continue;
        if (method.methodType() == QMetaMethod::Signal) {
            m_signals.append(at);
            m_shape.signalNames.append(signature(method, notices.contains(at)));
        } else if (method.access() == QMetaMethod::Public) {
            m_shape.methodNames.append(signature(method, false));
        }
    }
    for (int at = QObject::staticMetaObject.propertyCount(); at < type.propertyCount(); ++at) {
        const QMetaProperty property = type.property(at);
        m_properties.append(at);
        m_shape.properties.append({property.name(), typeName(property.metaType()),
                                   static_cast<int>(m_signals.indexOf(property.notifySignalIndex()))});
    }
}

QVariantList ObjectRelay::values()
{
    QVariantList values;
    for (const int property : std::as_const(m_properties))
        values << m_publisher.published(m_source.metaObject()->property(property).read(&m_source));
    return values;
}

int ObjectRelay::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    hear(id, arguments);
    return -1;
}

void ObjectRelay::hear(int method, void **arguments)
{
    const int signal = static_cast<int>(m_signals.indexOf(method));
    const bool isNotice =
        std::ranges::any_of(m_shape.properties, [signal](const PropertyShape &each) { return each.signal == signal; });
    if (isNotice) {
        if (!m_told.contains(signal))
            m_told.append(signal);
        m_publisher.flushLater();
        return;
    }
    const QMetaMethod told = m_source.metaObject()->method(method);
    QVariantList values;
    for (int at = 0; at < told.parameterCount(); ++at)
        values << m_publisher.published(QVariant(told.parameterMetaType(at), arguments[at + 1]));
    m_publisher.flush();
    m_publisher.send(ViewMessageKind::signalled, {m_number, signal, QVariant(values)});
}

void ObjectRelay::flush()
{
    if (m_told.isEmpty())
        return;
    const auto told = std::exchange(m_told, {});
    QVariantList numbers, values;
    for (qsizetype at = 0; at < m_shape.properties.size(); ++at) {
        if (!told.contains(m_shape.properties[at].signal))
            continue;
        numbers << at;
        values << m_publisher.published(m_source.metaObject()->property(m_properties[at]).read(&m_source));
    }
    m_publisher.send(ViewMessageKind::changed, {m_number, QVariant(numbers), QVariant(values), QVariant(told)});
}

}
