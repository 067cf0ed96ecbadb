#include "Platform/Freedesktop/FreedesktopNotificationProbe.h"

#include "Platform/Freedesktop/BusCalls.h"

#include <QtDBus/QDBusMessage>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
constexpr int answerLimitMilliseconds = 3000;
const NotificationProbeResult unavailable{NotificationPermission::unavailable, false};

}

FreedesktopNotificationProbe::FreedesktopNotificationProbe(const QDBusConnection &sessionBus)
    : m_bus(sessionBus)
{
}

void FreedesktopNotificationProbe::query(std::function<void(NotificationProbeResult)> onResult)
{
    askCapabilities(false, onResult, [this, onResult] { askStartable(onResult); });
}

void FreedesktopNotificationProbe::request(std::function<void(NotificationProbeResult)> onResult)
{
    askCapabilities(true, onResult, [onResult] { onResult(unavailable); });
}

void FreedesktopNotificationProbe::askCapabilities(bool startsServer, OnResult onResult,
                                                   std::function<void()> onFailure)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetCapabilities"));
    message.setAutoStartService(startsServer);
    call(message, [this, onResult = std::move(onResult), onFailure = std::move(onFailure)](const QDBusMessage &reply) {
        if (reply.type() != QDBusMessage::ReplyMessage)
            return onFailure();
        const QStringList capabilities = reply.arguments().value(0).toStringList();
        askName({NotificationPermission::authorised, capabilities.contains(QLatin1String("actions"))}, onResult);
    });
}

void FreedesktopNotificationProbe::askName(NotificationProbeResult result, OnResult onResult)
{
    const QDBusMessage message =
        QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetServerInformation"));
    call(message, [result, onResult = std::move(onResult)](const QDBusMessage &reply) mutable {
        if (reply.type() == QDBusMessage::ReplyMessage)
            result.serverName = reply.arguments().value(0).toString();
        onResult(result);
    });
}

void FreedesktopNotificationProbe::askStartable(OnResult onResult)
{
    call(busCall(QStringLiteral("ListActivatableNames")), [onResult = std::move(onResult)](const QDBusMessage &reply) {
        const bool isStartable = reply.arguments().value(0).toStringList().contains(service);
        onResult(isStartable ? NotificationProbeResult{NotificationPermission::authorised, true} : unavailable);
    });
}

void FreedesktopNotificationProbe::call(const QDBusMessage &message, OnReply onReply)
{
    // A call over no bus never finishes.
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [onReply = std::move(onReply)] { onReply(QDBusMessage()); }, Qt::QueuedConnection);
        return;
    }
    whenAnswered(m_bus.asyncCall(message, answerLimitMilliseconds), this,
                 [onReply = std::move(onReply)](const QDBusPendingCall &call) { onReply(call.reply()); });
}

}
