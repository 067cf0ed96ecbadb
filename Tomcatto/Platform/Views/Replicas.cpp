#include "Platform/Views/Replicas.h"

#include "Platform/Views/ListReplica.h"
#include "Platform/Views/ObjectReplica.h"

namespace tomcatto {

Replicas::Replicas(Send send)
    : m_send(std::move(send))
{
}

Replicas::~Replicas() = default;

QObject *Replicas::object(int number) const
{
    const auto found = m_objects.find(number);
    return found == m_objects.end() ? nullptr : found->second;
}

QVariantList Replicas::resolvedList(const QVariant &list) const
{
    QVariantList values = list.toList();
    for (QVariant &value : values)
        value = resolved(value);
    return values;
}

QVariant Replicas::resolved(const QVariant &value) const
{
    if (value.metaType() == QMetaType::fromType<ObjectReference>()) {
        const int number = value.value<ObjectReference>().object;
        if (const auto list = m_lists.find(number); list != m_lists.end())
            return QVariant::fromValue<QAbstractItemModel *>(list->second);
        return QVariant::fromValue(object(number));
    }
    if (value.metaType().id() == QMetaType::QVariantList)
        return resolvedList(value);
    if (value.metaType().id() != QMetaType::QVariantMap)
        return value;
    QVariantMap map = value.toMap();
    for (QVariant &each : map)
        each = resolved(each);
    return map;
}

bool Replicas::take(const ViewMessage &message)
{
    const QVariantList &arguments = message.arguments;
    const int number = arguments.value(0).toInt();
    const auto found = m_objects.find(number);
    switch (message.kind) {
    case ViewMessageKind::object:
        m_objects[number] = new ObjectReplica(*this, number, ObjectShape::fromList(arguments.value(1).toList()),
                                              resolvedList(arguments.value(2)));
        return true;
    case ViewMessageKind::changed:
        if (found != m_objects.end())
            found->second->change(arguments.value(1).toList(), resolvedList(arguments.value(2)),
                                  arguments.value(3).toList());
        return true;
    case ViewMessageKind::signalled:
        if (found != m_objects.end())
            found->second->signal(arguments.value(1).toInt(), resolvedList(arguments.value(2)));
        return true;
    case ViewMessageKind::list:
        m_lists[number] = new ListReplica(*this, number, arguments.value(1).toMap());
        m_lists[number]->reset(arguments.value(2).toBool(), resolvedList(arguments.value(3)));
        return true;
    case ViewMessageKind::gone:
        if (found != m_objects.end())
            found->second->deleteLater();
        if (const auto list = m_lists.find(number); list != m_lists.end())
            list->second->deleteLater();
        m_objects.erase(number);
        m_lists.erase(number);
        return true;
    default:
        return takeRows(message);
    }
}

bool Replicas::takeRows(const ViewMessage &message)
{
    const QVariantList &arguments = message.arguments;
    const auto found = m_lists.find(arguments.value(0).toInt());
    ListReplica *const list = found == m_lists.end() ? nullptr : found->second;
    const int first = arguments.value(1).toInt();
    switch (message.kind) {
    case ViewMessageKind::rowsInserted:
        if (list)
            list->insert(first, resolvedList(arguments.value(2)), arguments.value(3).toBool());
        return true;
    case ViewMessageKind::rowsRemoved:
        if (list)
            list->remove(first, arguments.value(2).toInt());
        return true;
    case ViewMessageKind::rowsChanged:
        if (list)
            list->change(first, resolvedList(arguments.value(2)));
        return true;
    case ViewMessageKind::rowsReset:
        if (list)
            list->reset(arguments.value(1).toBool(), resolvedList(arguments.value(2)));
        return true;
    default:
        return false;
    }
}

}
