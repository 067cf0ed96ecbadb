#include "Platform/Freedesktop/BusFindings.h"

#include "Platform/Freedesktop/SilentBuses.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

namespace tomcatto {

namespace {

using Mark = Finding::Mark;

constexpr int answerLimitMilliseconds = 2000;
const QString notificationService = QStringLiteral("org.freedesktop.Notifications");
const QString notificationPath = QStringLiteral("/org/freedesktop/Notifications");

QDBusMessage ask(const QDBusConnection &bus, const QString &service, const QString &path, const QString &interface,
                 const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, answerLimitMilliseconds);
}

/// A bus with the names on it.
struct AskedBus
{
    enum class State { silent, absent, answering };

    State state = State::absent;
    QStringList running;
    QStringList startable;

    [[nodiscard]] bool runs(const QString &name) const { return running.contains(name); }
    [[nodiscard]] bool offers(const QString &name) const { return runs(name) || startable.contains(name); }
};

AskedBus askedBus(const QDBusConnection &bus, bool isSilent)
{
    if (isSilent)
        return {AskedBus::State::silent, {}, {}};
    if (!bus.isConnected())
        return {};
    const auto names = [&bus](const char *method) {
        const QString service = QStringLiteral("org.freedesktop.DBus");
        return ask(bus, service, QStringLiteral("/org/freedesktop/DBus"), service, QString::fromLatin1(method));
    };
    const QDBusMessage running = names("ListNames");
    if (running.type() != QDBusMessage::ReplyMessage)
        return {AskedBus::State::silent, {}, {}};
    return {AskedBus::State::answering, running.arguments().value(0).toStringList(),
            names("ListActivatableNames").arguments().value(0).toStringList()};
}

Finding findBus(const QString &part, const AskedBus &bus, const QString &loss, const QString &advice)
{
    switch (bus.state) {
    case AskedBus::State::answering:
        return {part, Mark::there, QStringLiteral("it answers"), {}};
    case AskedBus::State::silent:
        return {part, Mark::lacking, QStringLiteral("it takes connections but does not answer, so ") + loss,
                QStringLiteral("Log in anew, which starts it anew")};
    case AskedBus::State::absent:
        break;
    }
    return {part, Mark::lacking, QStringLiteral("there is none, so ") + loss, advice};
}

Finding findNotifications(const QDBusConnection &connection, const AskedBus &bus)
{
    const QString part = QStringLiteral("notifications");
    const QString loss = QStringLiteral(", so the end of a phase is not announced");
    if (!bus.offers(notificationService))
        return {part, Mark::lacking, QStringLiteral("no notification server runs") + loss,
                QStringLiteral("Start the one of your desktop, or one such as dunst")};
    if (!bus.runs(notificationService))
        return {part, Mark::there, QStringLiteral("a server starts with the first one"), {}};
    const auto asked = [&connection](const char *method) {
        return ask(connection, notificationService, notificationPath, notificationService, QString::fromLatin1(method));
    };
    const QDBusMessage server = asked("GetServerInformation");
    if (server.type() != QDBusMessage::ReplyMessage)
        return {part, Mark::lacking, QStringLiteral("the notification server does not answer") + loss,
                QStringLiteral("Restart it")};
    const QString name = server.arguments().value(0).toString() + u' ' + server.arguments().value(2).toString();
    if (!asked("GetCapabilities").arguments().value(0).toStringList().contains(QLatin1String("actions")))
        return {part, Mark::lacking, name + QStringLiteral(", which shows no buttons"),
                QStringLiteral("Use the panel instead, or another notification server")};
    return {part, Mark::there, name + QStringLiteral(", with buttons"), {}};
}

Finding findService(const QString &part, const AskedBus &bus, const QString &name, const QString &loss,
                    const QString &advice)
{
    if (bus.offers(name))
        return {part, Mark::there, name + (bus.runs(name) ? QString() : QStringLiteral(", started when needed")), {}};
    return {part, Mark::lacking, QStringLiteral("there is no %1, so %2").arg(name, loss), advice};
}

}

Findings findOnBuses()
{
    const QByteArrayList silent = avoidSilentBuses();
    const QDBusConnection session = QDBusConnection::sessionBus();
    const AskedBus sessionBus = askedBus(session, silent.contains("DBUS_SESSION_BUS_ADDRESS"));
    const AskedBus systemBus = askedBus(QDBusConnection::systemBus(), silent.contains("DBUS_SYSTEM_BUS_ADDRESS"));
    return {
        findBus(QStringLiteral("session bus"), sessionBus,
                QStringLiteral("there are no notifications, and other programs cannot drive the timer"),
                QStringLiteral("Start Tomcatto within the session of a desktop, or by dbus-run-session")),
        findNotifications(session, sessionBus),
        findService(QStringLiteral("portal"), sessionBus, QStringLiteral("org.freedesktop.portal.Desktop"),
                    QStringLiteral("the wish for a dark desktop, for less motion or more contrast may not be known"),
                    QStringLiteral("Install xdg-desktop-portal and the part of it for your desktop")),
        findBus(QStringLiteral("system bus"), systemBus,
                QStringLiteral("Tomcatto does not hear of the machine's sleep"),
                QStringLiteral("Install and start dbus")),
        findService(QStringLiteral("sleep and wake"), systemBus, QStringLiteral("org.freedesktop.login1"),
                    QStringLiteral("a phase that runs is not paused before the machine sleeps"),
                    QStringLiteral("Install systemd-logind or elogind"))};
}

bool hasTrayHost(const QDBusConnection &sessionBus)
{
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    const QDBusMessage answer = ask(sessionBus, watcher, QStringLiteral("/StatusNotifierWatcher"),
                                    QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                    {watcher, QStringLiteral("IsStatusNotifierHostRegistered")});
    return answer.type() == QDBusMessage::ReplyMessage &&
           answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

}
