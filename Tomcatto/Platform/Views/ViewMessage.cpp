#include "Platform/Views/ViewMessage.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace tomcatto {

namespace {

constexpr auto streamVersion = QDataStream::Qt_6_4;

}

QDataStream &operator<<(QDataStream &stream, ObjectReference reference)
{
    return stream << reference.object;
}

QDataStream &operator>>(QDataStream &stream, ObjectReference &reference)
{
    return stream >> reference.object;
}

QVariantList ObjectShape::toList() const
{
    QVariantList shapes;
    for (const PropertyShape &property : properties)
        shapes << property.name << property.type << property.signal;
    const auto listed = [](const QList<QByteArray> &names) { return QVariantList(names.begin(), names.end()); };
    return {name, QVariant(shapes), QVariant(listed(signalNames)), QVariant(listed(methodNames))};
}

ObjectShape ObjectShape::fromList(const QVariantList &list)
{
    ObjectShape shape{list.value(0).toByteArray(), {}, {}, {}};
    const QVariantList properties = list.value(1).toList();
    for (qsizetype at = 0; at + 2 < properties.size(); at += 3)
        shape.properties.append(
            {properties[at].toByteArray(), properties[at + 1].toByteArray(), properties[at + 2].toInt()});
    for (const QVariant &name : list.value(2).toList())
        shape.signalNames.append(name.toByteArray());
    for (const QVariant &name : list.value(3).toList())
        shape.methodNames.append(name.toByteArray());
    return shape;
}

QByteArray packed(const ViewMessage &message)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << quint32{0} << static_cast<quint8>(message.kind) << message.arguments;
    stream.device()->seek(0);
    stream << static_cast<quint32>(bytes.size() - qsizetype{sizeof(quint32)});
    return bytes;
}

std::optional<ViewMessage> ViewMessageReader::next()
{
    QDataStream stream(m_bytes);
    stream.setVersion(streamVersion);
    quint32 size = 0;
    stream >> size;
    const qsizetype whole = qsizetype{sizeof(size)} + size;
    if (stream.status() != QDataStream::Ok || m_bytes.size() < whole)
        return std::nullopt;
    ViewMessage message;
    quint8 kind = 0;
    stream >> kind >> message.arguments;
    if (stream.status() == QDataStream::Ok)
        message.kind = static_cast<ViewMessageKind>(kind);
    else
        message = {ViewMessageKind::gone, {}};
    m_bytes.remove(0, whole);
    return message;
}

}
