#pragma once

#include <cstdint>
#include <expected>
#include <QtCore/QString>

namespace tomcatto {

/// What the system does with the application when the user logs in.
enum class LoginItemStatus : std::uint8_t {
    /// It is not started.
    notRegistered,
    /// It is started.
    enabled,
    /// It is registered, but the system waits for the user's approval, or the user has switched it off there.
    requiresApproval,
    /// It is registered, but what would be started is gone, as after a move of the application.
    outdated,
    /// Something else is started in its place, such as another copy of the application.
    otherProgram,
    /// The system offers no such thing, or its state cannot be read.
    unavailable
};

/// The application as a login item of the system. Main thread only; the calls may touch the disk.
class LoginItem
{
public:
    virtual ~LoginItem() = default;

    /// The state as the system has it now.
    [[nodiscard]] virtual LoginItemStatus status() const = 0;
    /// Asks the system to start the application at login, in the background.
    /// @return on failure the system's message, for the log.
    [[nodiscard]] virtual std::expected<void, QString> registerItem() = 0;
    /// Asks the system to start it no longer. An item that is not registered is not a failure.
    [[nodiscard]] virtual std::expected<void, QString> unregisterItem() = 0;
};

}
