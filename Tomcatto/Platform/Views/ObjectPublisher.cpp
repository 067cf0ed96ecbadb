#include "Platform/Views/ObjectPublisher.h"

#include "Platform/Views/ListRelay.h"
#include "Platform/Views/ObjectRelay.h"

#include <QtCore/QMetaProperty>

namespace tomcatto {

namespace {

/// The properties of a value, by name.
QVariantMap mapOf(const QVariant &value)
{
    QVariantMap map;
    const QMetaObject &type = *value.metaType().metaObject();
    for (int at = 0; at < type.propertyCount(); ++at)
        map.insert(QString::fromLatin1(type.property(at).name()), type.property(at).readOnGadget(value.constData()));
    return map;
}

/// The object that a value holds; null where it holds none.
QObject *objectIn(const QVariant &value)
{
    return value.metaType().flags().testFlag(QMetaType::PointerToQObject) ? value.value<QObject *>() : nullptr;
}

}

ObjectPublisher::ObjectPublisher(MainRunLoop &runLoop, Send send)
    : m_runLoop(runLoop)
    , m_send(std::move(send))
{
}

ObjectPublisher::~ObjectPublisher()
{
    for (const auto &[number, count] : std::exchange(m_appearances, {})) {
        for (int each = 0; each < count && m_objects.contains(number); ++each)
            call(m_objects.at(number)->source(), "disappear", {});
    }
}

QVariant ObjectPublisher::published(const QVariant &value)
{
    const QMetaType type = value.metaType();
    if (QObject *const object = objectIn(value))
        return QVariant::fromValue(ObjectReference{publish(*object)});
    if (type.flags().testFlag(QMetaType::PointerToQObject))
        return {};
    if (type.flags().testFlag(QMetaType::IsEnumeration))
        return value.toInt();
    if (type.flags().testFlag(QMetaType::IsGadget))
        return published(mapOf(value));
    if (type.id() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        for (QVariant &each : map)
            each = published(each);
        return map;
    }
    const bool isList =
        type.id() == QMetaType::QVariantList || (type.id() >= QMetaType::User && value.canConvert<QVariantList>());
    // The other process knows no types of ours.
    if (!isList)
        return type.id() < QMetaType::User ? value : QVariant();
    QVariantList list = value.toList();
    for (QVariant &each : list)
        each = published(each);
    return list;
}

int ObjectPublisher::publish(QObject &object)
{
    if (const auto known = m_numbers.find(&object); known != m_numbers.end())
        return known->second;
    const int number = m_numbers[&object] = ++m_lastNumber;
    connect(&object, &QObject::destroyed, this, [this, number, gone = &object] { forget(number, gone); });
    if (auto *const list = qobject_cast<QAbstractItemModel *>(&object)) {
        auto &relay = m_lists[number] = std::make_unique<ListRelay>(*this, *list, number);
        send(ViewMessageKind::list, QVariantList{number} + relay->contents());
        return number;
    }
    auto &relay = m_objects[number] = std::make_unique<ObjectRelay>(*this, object, number);
    const QVariantList values = relay->values();
    send(ViewMessageKind::object, {number, QVariant(relay->shape().toList()), QVariant(values)});
    return number;
}

void ObjectPublisher::forget(int number, const QObject *object)
{
    m_numbers.erase(object);
    m_objects.erase(number);
    m_lists.erase(number);
    m_appearances.erase(number);
    send(ViewMessageKind::gone, {number});
}

void ObjectPublisher::send(ViewMessageKind kind, QVariantList arguments)
{
    m_send({kind, std::move(arguments)});
}

void ObjectPublisher::flushLater()
{
    if (!std::exchange(m_isFlushDue, true))
        m_runLoop.async(*this, [this] { flush(); });
}

void ObjectPublisher::flush()
{
    m_isFlushDue = false;
    // Values may hold objects that are new.
    std::vector<ObjectRelay *> relays;
    relays.reserve(m_objects.size());
    for (const auto &[number, relay] : m_objects)
        relays.push_back(relay.get());
    for (ObjectRelay *const relay : relays)
        relay->flush();
}

void ObjectPublisher::obey(const ViewMessage &message)
{
    const int number = message.arguments.value(0).toInt();
    if (message.kind == ViewMessageKind::fetchMore) {
        if (const auto list = m_lists.find(number); list != m_lists.end())
            list->second->source().fetchMore({});
    } else if (const auto object = m_objects.find(number); object != m_objects.end()) {
        const QByteArray method = message.arguments.value(1).toByteArray();
        if (method == "appear")
            ++m_appearances[number];
        else if (method == "disappear")
            --m_appearances[number];
        call(object->second->source(), method, message.arguments.value(2).toList());
    }
}

void ObjectPublisher::call(QObject &object, const QByteArray &method, QVariantList arguments)
{
    const QMetaObject &type = *object.metaObject();
    for (int at = QObject::staticMetaObject.methodCount(); at < type.methodCount(); ++at) {
        const QMetaMethod wanted = type.method(at);
        if (wanted.methodType() == QMetaMethod::Signal || wanted.name() != method ||
            wanted.parameterCount() != arguments.size())
            continue;
        // What it returns is nobody's.
        QVariant result(wanted.returnMetaType());
        std::vector<void *> places{result.data()};
        for (int each = 0; each < wanted.parameterCount(); ++each) {
            QVariant &argument = arguments[each];
            if (wanted.parameterMetaType(each).id() != QMetaType::QVariant)
                argument.convert(wanted.parameterMetaType(each));
            places.push_back(wanted.parameterMetaType(each).id() == QMetaType::QVariant ? &argument : argument.data());
        }
        QMetaObject::metacall(&object, QMetaObject::InvokeMetaMethod, at, places.data());
        return;
    }
}

}
