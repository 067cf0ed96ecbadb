#include "Platform/Freedesktop/AppearancePortal.h"

#include "Platform/Freedesktop/BusCalls.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>
#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString commonSpace = QStringLiteral("org.freedesktop.appearance");
const QString gnomeSpace = QStringLiteral("org.gnome.desktop.interface");

using SettingsBySpace = QMap<QString, QVariantMap>;

QString settingName(const QString &space, const QString &key)
{
    return space + u' ' + key;
}

/// Some portals wrap values twice.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

}

AppearancePortal::AppearancePortal(const QDBusConnection &sessionBus, DesktopAppearance &appearance)
    : m_bus(sessionBus)
    , m_appearance(appearance)
{
    if (!m_bus.isConnected())
        return;
    qDBusRegisterMetaType<SettingsBySpace>();
    m_bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this, SLOT(settingChanged(QDBusMessage)));
    followOwner(m_bus, service, this, [this](const QString &newOwner) {
        // Without a portal the last values stay: its restart must not make the windows flash.
        if (!newOwner.isEmpty())
            askPortal();
    });
    askPortal();
}

void AppearancePortal::askPortal()
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    message << QStringList{commonSpace, gnomeSpace};
    whenAnswered(m_bus.asyncCall(message), this, [this](const QDBusPendingReply<SettingsBySpace> &reply) {
        if (reply.isError()) {
            m_logger.debug(QStringLiteral("no portal, the palette decides: ") + reply.error().message());
            return;
        }
        const SettingsBySpace spaces = reply.value();
        for (auto space = spaces.begin(); space != spaces.end(); ++space) {
            for (auto setting = space->begin(); setting != space->end(); ++setting)
                m_settings.insert(settingName(space.key(), setting.key()), unwrapped(setting.value()));
        }
        tell();
    });
}

void AppearancePortal::settingChanged(const QDBusMessage &signal)
{
    // Namespace, key, value.
    const QVariantList arguments = signal.arguments();
    const QString space = arguments.value(0).toString();
    if (space != commonSpace && space != gnomeSpace)
        return;
    m_settings.insert(settingName(space, arguments.value(1).toString()), unwrapped(arguments.value(2)));
    tell();
}

void AppearancePortal::tell()
{
    const auto setting = [this](const QString &space, const char *key) {
        return m_settings.value(settingName(space, QLatin1String(key)));
    };
    LookPreferences preferences;
    // 0 means no preference, 1 dark, 2 light.
    if (const uint scheme = setting(commonSpace, "color-scheme").toUInt(); scheme != 0)
        preferences.isDark = scheme == 1;
    const QVariant animations = setting(gnomeSpace, "enable-animations");
    preferences.reducedMotion =
        setting(commonSpace, "reduced-motion").toUInt() == 1 || (animations.isValid() && !animations.toBool());
    preferences.highContrast = setting(commonSpace, "contrast").toUInt() == 1;
    // On X11 the desktop's text scale comes as the screen's resolution, which scales everything already.
    const QVariant factor = setting(gnomeSpace, "text-scaling-factor");
    if (factor.isValid() && !QGuiApplication::platformName().startsWith(QLatin1String("xcb")))
        preferences.textScale = factor.toReal();
    m_appearance.setPreferences(preferences);
}

}
