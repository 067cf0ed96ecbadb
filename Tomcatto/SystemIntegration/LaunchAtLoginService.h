#pragma once

#include "Foundation/Logger.h"
#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/Alert.h"
#include "Platform/Ports/LoginItem.h"
#include "Platform/Ports/SystemSettings.h"
#include "Timer/PomodoroSettings.h"

namespace tomcatto {

/// Keeps the system's login item and the `launchAtLogin` setting together. A change of the setting, from wherever, is
/// handed to the system; where that fails the user is told and the setting goes back to what the system has. Waiting
/// for the user's approval counts as off: nothing is started then. So does another program in the application's place;
/// an item whose program is gone is registered anew. Main thread only.
class LaunchAtLoginService final : public QObject
{
    Q_OBJECT

public:
    /// How a desktop tells the user of a failure. All outlive the service.
    struct FailureAlert
    {
        Alert &alert;
        SystemSettings &systemSettings;
        const LocalizedStrings &strings;
    };

    /// @param failureAlert null without a desktop, where the one who changes the setting asks for the problem.
    LaunchAtLoginService(PomodoroSettings &settings, LoginItem &loginItem,
                         std::optional<FailureAlert> failureAlert = {}, QObject *parent = nullptr);

    /// The state read last.
    [[nodiscard]] LoginItemStatus status() const noexcept { return m_status; }
    /// Why the last change did not reach the system, in the system's words; empty where it did.
    [[nodiscard]] const QString &problem() const noexcept { return m_problem; }

    /// Reads the state from the system; the setting follows it.
    void readStatus();
    /// Registers the application as a login item.
    void enable();
    /// Takes the registration back.
    void disable();

Q_SIGNALS:
    void statusChanged();

private:
    void settingChanged();
    void apply(bool isOn);
    [[nodiscard]] bool renew();
    void tellFailure(const FailureAlert &failureAlert);

    PomodoroSettings &m_settings;
    LoginItem &m_loginItem;
    std::optional<FailureAlert> m_failureAlert;
    Logger m_logger{QStringLiteral("LaunchAtLoginService")};
    LoginItemStatus m_status = LoginItemStatus::notRegistered;
    QString m_problem;
    // The setting follows the system; that is not a wish of the user's.
    bool m_isFollowing = false;
};

}
