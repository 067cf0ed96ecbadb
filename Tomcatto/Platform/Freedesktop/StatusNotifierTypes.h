#pragma once

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <QtGui/QImage>

namespace tomcatto {

/// A picture as trays take it: width, height, then pixels as alpha, red, green, blue. D-Bus signature (iiay).
struct IconPixmap
{
    int width = 0;
    int height = 0;
    QByteArray pixels;

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
};
using MenuItemPropertiesList = QList<MenuItemProperties>;

/// Something that happened to a menu entry. D-Bus signature (isvu).
struct MenuEvent
{
    int id = 0;
    QString kind;
    QDBusVariant data;
    uint timestamp = 0;
};

/// Makes the types known to D-Bus; more than once does no harm.
void registerStatusNotifierTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const IconPixmap &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, IconPixmap &value);
QDBusArgument &operator<<(QDBusArgument &argument, const IconToolTip &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, IconToolTip &value);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayoutItem &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayoutItem &value);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuItemProperties &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuItemProperties &value);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &value);

}

Q_DECLARE_METATYPE(tomcatto::IconPixmap)
Q_DECLARE_METATYPE(tomcatto::IconToolTip)
Q_DECLARE_METATYPE(tomcatto::MenuLayoutItem)
Q_DECLARE_METATYPE(tomcatto::MenuItemProperties)
Q_DECLARE_METATYPE(tomcatto::MenuEvent)
