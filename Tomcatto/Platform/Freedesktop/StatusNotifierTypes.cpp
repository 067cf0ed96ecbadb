#include "Platform/Freedesktop/StatusNotifierTypes.h"

#include <QtCore/QtEndian>
#include <QtDBus/QDBusMetaType>

namespace tomcatto {

IconPixmap iconPixmap(const QImage &image)
{
    const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
    const auto rowBytes = static_cast<qsizetype>(straight.width()) * 4;
    QByteArray pixels(rowBytes * straight.height(), Qt::Uninitialized);
    for (int row = 0; row < straight.height(); ++row)
        qToBigEndian<quint32>(straight.constScanLine(row), straight.width(), pixels.data() + row * rowBytes);
    return {straight.width(), straight.height(), pixels};
}

void registerStatusNotifierTypes()
{
    qDBusRegisterMetaType<IconPixmap>();
    qDBusRegisterMetaType<IconPixmaps>();
    qDBusRegisterMetaType<IconToolTip>();
    qDBusRegisterMetaType<MenuLayoutItem>();
    qDBusRegisterMetaType<MenuItemProperties>();
    qDBusRegisterMetaType<MenuItemPropertiesList>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    qDBusRegisterMetaType<QList<int>>();
}

// Streams are handed through, as the library's own operators do.
// NOLINTBEGIN(bugprone-return-const-ref-from-parameter)
QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayoutItem &value)
{
    argument.beginStructure();
    argument << value.id << value.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayoutItem &child : value.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayoutItem &value)
{
    argument.beginStructure();
    argument >> value.id >> value.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        value.children.append(qdbus_cast<MenuLayoutItem>(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

// NOLINTEND(bugprone-return-const-ref-from-parameter)

}
