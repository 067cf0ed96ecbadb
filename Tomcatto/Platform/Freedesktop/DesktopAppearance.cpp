#include "Platform/Freedesktop/DesktopAppearance.h"

#include <algorithm>
#include <QtCore/QEvent>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString commonSpace = QStringLiteral("org.freedesktop.appearance");
const QString gnomeSpace = QStringLiteral("org.gnome.desktop.interface");

using SettingsBySpace = QMap<QString, QVariantMap>;

/// Changes a value. @return whether it is another one now.
template<typename T>
bool assign(T &value, const T &wanted)
{
    return std::exchange(value, wanted) != wanted;
}

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

bool isPaletteDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

DesktopAppearance::DesktopAppearance(const QDBusConnection &sessionBus)
    : m_bus(sessionBus)
{
    qGuiApp->installEventFilter(this);
    refresh();
    if (!m_bus.isConnected())
        return;
    qDBusRegisterMetaType<SettingsBySpace>();
    m_bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this, SLOT(settingChanged(QDBusMessage)));
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &newOwner) {
                // Without a portal the last values stay: its restart must not make the windows flash.
                if (!newOwner.isEmpty())
                    askPortal();
            });
    askPortal();
}

void DesktopAppearance::setDarkOverride(std::optional<bool> dark)
{
    m_override = dark;
    refresh();
}

bool DesktopAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp)
        refresh();
    return QObject::eventFilter(watched, event);
}

void DesktopAppearance::askPortal()
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    message << QStringList{commonSpace, gnomeSpace};
    auto *call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<SettingsBySpace> reply = *call;
        if (reply.isError()) {
            m_logger.debug(QStringLiteral("no portal, the palette decides: ") + reply.error().message());
            return;
        }
        const SettingsBySpace spaces = reply.value();
        for (auto space = spaces.begin(); space != spaces.end(); ++space) {
            for (auto setting = space->begin(); setting != space->end(); ++setting)
                m_settings.insert(settingName(space.key(), setting.key()), unwrapped(setting.value()));
        }
        refresh();
    });
}

void DesktopAppearance::settingChanged(const QDBusMessage &signal)
{
    // Namespace, key, value.
    const QVariantList arguments = signal.arguments();
    const QString space = arguments.value(0).toString();
    if (space != commonSpace && space != gnomeSpace)
        return;
    m_settings.insert(settingName(space, arguments.value(1).toString()), unwrapped(arguments.value(2)));
    refresh();
}

void DesktopAppearance::refresh()
{
    const auto setting = [this](const QString &space, const char *key) {
        return m_settings.value(settingName(space, QLatin1String(key)));
    };
    // 0 means no preference, 1 dark, 2 light.
    const uint scheme = setting(commonSpace, "color-scheme").toUInt();
    const bool isDesktopDark = scheme == 0 ? isPaletteDark() : scheme == 1;
    const QVariant animations = setting(gnomeSpace, "enable-animations");
    const bool reducedMotion =
        setting(commonSpace, "reduced-motion").toUInt() == 1 || (animations.isValid() && !animations.toBool());
    // On X11 the desktop's text scale comes as the screen's resolution, which scales everything already.
    const bool scalesText = !QGuiApplication::platformName().startsWith(QLatin1String("xcb"));
    const QVariant factor = scalesText ? setting(gnomeSpace, "text-scaling-factor") : QVariant();
    const qreal textScale = std::clamp(factor.isValid() ? factor.toReal() : 1.0, 1.0, 2.0);

    if (assign(m_isDesktopDark, isDesktopDark))
        Q_EMIT desktopDarkChanged();
    if (assign(m_dark, m_override.value_or(isDesktopDark)))
        Q_EMIT darkChanged();
    if (assign(m_reducedMotion, reducedMotion))
        Q_EMIT reducedMotionChanged();
    if (assign(m_highContrast, setting(commonSpace, "contrast").toUInt() == 1))
        Q_EMIT highContrastChanged();
    if (assign(m_textScale, textScale))
        Q_EMIT textScaleChanged();
}

}
