#pragma once

#include "Platform/Freedesktop/BusStructure.h"

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusVariant>
#include <QtGui/QImage>

namespace tomcatto {

/// A picture as trays take it: width, height, then pixels as alpha, red, green, blue. D-Bus signature (iiay).
struct IconPixmap
{
    int width = 0;
    int height = 0;
    QByteArray pixels;

    static constexpr auto busMembers = std::tuple(&IconPixmap::width, &IconPixmap::height, &IconPixmap::pixels);

    bool operator==(const IconPixmap &) const = default;
};
using IconPixmaps = QList<IconPixmap>;

[[nodiscard]] IconPixmap iconPixmap(const QImage &image);

/// A tray's tooltip: icon name, pictures, title, text. D-Bus signature (sa(iiay)ss).
struct IconToolTip
{
    QString iconName;
    IconPixmaps pictures;
    QString title;
    QString text;

    static constexpr auto busMembers =
        std::tuple(&IconToolTip::iconName, &IconToolTip::pictures, &IconToolTip::title, &IconToolTip::text);
};

/// A menu entry with all below it. D-Bus signature (ia{sv}av).
struct MenuLayoutItem
{
    int id = 0;
    QVariantMap properties;
    QList<MenuLayoutItem> children;
};

/// Properties of a menu entry. D-Bus signature (ia{sv}).
struct MenuItemProperties
{
    int id = 0;
    QVariantMap properties;

    static constexpr auto busMembers = std::tuple(&MenuItemProperties::id, &MenuItemProperties::properties);
};
using MenuItemPropertiesList = QList<MenuItemProperties>;

/// Something that happened to a menu entry. D-Bus signature (isvu).
struct MenuEvent
{
    int id = 0;
    QString kind;
    QDBusVariant data;
    uint timestamp = 0;

    static constexpr auto busMembers =
        std::tuple(&MenuEvent::id, &MenuEvent::kind, &MenuEvent::data, &MenuEvent::timestamp);
};

/// Makes the types known to D-Bus; more than once does no harm.
void registerStatusNotifierTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayoutItem &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayoutItem &value);

}

Q_DECLARE_METATYPE(tomcatto::IconPixmap)
Q_DECLARE_METATYPE(tomcatto::IconToolTip)
Q_DECLARE_METATYPE(tomcatto::MenuLayoutItem)
Q_DECLARE_METATYPE(tomcatto::MenuItemProperties)
Q_DECLARE_METATYPE(tomcatto::MenuEvent)
