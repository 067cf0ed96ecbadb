#include "Platform/Views/ObjectReplica.h"

#include "Platform/Views/Replicas.h"

#include <cstdlib>
#include <QtCore/private/qmetaobjectbuilder_p.h>
#include <QtCore/QMetaProperty>
#include <QtQml/QJSValue>
#include <QtQml/QQmlEngine>

namespace tomcatto {

namespace {

QMetaObject *build(const ObjectShape &shape)
{
    QMetaObjectBuilder builder;
    builder.setClassName(shape.name);
    builder.setSuperClass(&QObject::staticMetaObject);
    // Signals first, as moc does.
    for (const QByteArray &signal : shape.signalNames)
        builder.addSignal(signal);
    for (const QByteArray &method : shape.methodNames)
        builder.addMethod(method);
    for (const PropertyShape &property : shape.properties) {
        QMetaPropertyBuilder built = builder.addProperty(property.name, property.type, property.signal);
        built.setWritable(false);
        built.setConstant(property.signal < 0);
    }
    return builder.toMetaObject();
}

/// One for all objects of a class, kept as long as the process lives: the engine remembers classes by their address.
const QMetaObject *classFor(const ObjectShape &shape)
{
    struct Freed
    {
        void operator()(QMetaObject *built) const { std::free(built); }
    };
    static std::map<QByteArray, std::unique_ptr<QMetaObject, Freed>> classes;
    auto &built = classes[shape.name];
    if (!built)
        built.reset(build(shape));
    return built.get();
}

/// A value as the type that its place has; where it cannot be one, the type's own first value.
QVariant as(QMetaType type, QVariant value)
{
    if (value.metaType() != type && !value.convert(type))
        return QVariant(type);
    return value;
}

}

ObjectReplica::ObjectReplica(Replicas &replicas, int number, const ObjectShape &shape, QVariantList values)
    : QObject(&replicas)
    , m_replicas(replicas)
    , m_number(number)
    , m_class(classFor(shape))
    , m_values(std::move(values))
{
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

int ObjectReplica::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0)
        return id;
    switch (call) {
    case QMetaObject::ReadProperty:
        read(id, arguments);
        return id - static_cast<int>(m_values.size());
    case QMetaObject::InvokeMetaMethod:
        this->call(id, arguments);
        return -1;
    default:
        return id;
    }
}

void ObjectReplica::read(int property, void **arguments) const
{
    const QMetaType type = m_class->property(m_class->propertyOffset() + property).metaType();
    const QVariant value = m_values.value(property);
    if (type.id() == QMetaType::QVariant) {
        *static_cast<QVariant *>(arguments[0]) = value;
        return;
    }
    const QVariant converted = as(type, value);
    type.destruct(arguments[0]);
    type.construct(arguments[0], converted.constData());
}

void ObjectReplica::call(int method, void **arguments) const
{
    const QMetaMethod called = m_class->method(m_class->methodOffset() + method);
    if (called.methodType() == QMetaMethod::Signal)
        return;
    QVariantList values;
    for (int at = 0; at < called.parameterCount(); ++at) {
        const QMetaType type = called.parameterMetaType(at);
        QVariant value = type.id() == QMetaType::QVariant ? *static_cast<const QVariant *>(arguments[at + 1])
                                                          : QVariant(type, arguments[at + 1]);
        if (value.metaType() == QMetaType::fromType<QJSValue>())
            value = value.value<QJSValue>().toVariant();
        values << value;
    }
    m_replicas.send(ViewMessageKind::call, {m_number, called.name(), QVariant(values)});
}

void ObjectReplica::change(const QVariantList &properties, const QVariantList &values,
                           const QVariantList &signalNumbers)
{
    for (qsizetype at = 0; at < properties.size(); ++at) {
        const qsizetype property = properties[at].toInt();
        if (property >= 0 && property < m_values.size())
            m_values[property] = values.value(at);
    }
    for (const QVariant &number : signalNumbers)
        signal(number.toInt(), {});
}

void ObjectReplica::signal(int number, const QVariantList &arguments)
{
    const QMetaMethod told = m_class->method(m_class->methodOffset() + number);
    if (told.methodType() != QMetaMethod::Signal)
        return;
    QVariantList values;
    for (int at = 0; at < told.parameterCount(); ++at) {
        const QMetaType type = told.parameterMetaType(at);
        values << (type.id() == QMetaType::QVariant ? arguments.value(at) : as(type, arguments.value(at)));
    }
    std::vector<void *> places{nullptr};
    for (int at = 0; at < told.parameterCount(); ++at)
        places.push_back(told.parameterMetaType(at).id() == QMetaType::QVariant ? &values[at] : values[at].data());
    QMetaObject::activate(this, m_class, number, places.data());
}

}
