#pragma once

#include <cstdint>
#include <functional>
#include <QtCore/QString>

namespace tomcatto {

/// Whether the system shows the application's notifications.
enum class NotificationPermission : std::uint8_t {
    /// The user has not been asked; systems without such a question never answer this.
    notDetermined,
    authorised,
    denied,
    /// No program shows notifications here.
    unavailable
};

/// What the system said about notifications.
struct NotificationProbeResult
{
    NotificationPermission permission = NotificationPermission::notDetermined;
    /// Notifications can carry buttons.
    bool hasActions = false;
    /// The program that shows them; empty where the system does not say, or has not started it yet.
    QString serverName = {};

    bool operator==(const NotificationProbeResult &) const = default;
};

/// Asks the system for the permission to notify. Main thread only.
class NotificationProbe
{
public:
    virtual ~NotificationProbe() = default;

    /// Reads the state without asking the user. `onResult` is called later, once, on the main thread; a system that
    /// does not answer within a few seconds counts as unavailable.
    virtual void query(std::function<void(NotificationProbeResult)> onResult) = 0;
    /// Asks the user where the system does so, else reads the state like `query`; there it may also start the program
    /// that shows notifications.
    virtual void request(std::function<void(NotificationProbeResult)> onResult) = 0;
};

}
