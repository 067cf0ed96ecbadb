#pragma once

#include "Platform/Ports/NotificationProbe.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

class QDBusMessage;

namespace tomcatto {

/// Asks the notification server on the session bus what it can. There is no question to the user on this system: where
/// a server runs or can be started, notifications are allowed.
class FreedesktopNotificationProbe final : public QObject, public NotificationProbe
{
    Q_OBJECT

public:
    explicit FreedesktopNotificationProbe(const QDBusConnection &sessionBus);

    /// A server that the bus would only start when needed counts as allowed, with buttons: what it can is known once it
    /// runs.
    void query(std::function<void(NotificationProbeResult)> onResult) override;
    /// Starts the server where it can be started.
    void request(std::function<void(NotificationProbeResult)> onResult) override;

private:
    using OnResult = std::function<void(NotificationProbeResult)>;
    using OnReply = std::function<void(const QDBusMessage &)>;

    void askCapabilities(bool startsServer, OnResult onResult, std::function<void()> onFailure);
    void askName(NotificationProbeResult result, OnResult onResult);
    void askStartable(OnResult onResult);
    void call(const QDBusMessage &message, OnReply onReply);

    QDBusConnection m_bus;
};

}
