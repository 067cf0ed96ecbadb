#pragma once

#include "Alerts/NotificationActionRouter.h"
#include "Alerts/NotificationPayload.h"
#include "Localization/LocalizedStrings.h"
#include "Manners/MannersService.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/UserNotificationCenter.h"

#include <QtCore/QPointer>

namespace tomcatto {

/// Notifies of what the user should notice of the phases and of the good manners, and turns an answer to a notification
/// into an operation of the state machine. It never asks for the permission. Main thread only.
class NotificationCenterService final : public QObject, public UserNotificationCenterDelegate
{
    Q_OBJECT

public:
    /// What surrounds the service; everything outlives it.
    struct Surroundings
    {
        UserNotificationCenter &center;
        MainRunLoop &runLoop;
        IdentifierSource &identifiers;
        const LocalizedStrings &strings;
        MannersService &manners;
        const WallClock &wallClock;
    };

    /// How long a snoozed notice is away.
    static constexpr std::chrono::minutes snoozeTime{5};
    /// The one request that has a fixed identifier, since the next phase takes it back.
    static constexpr QLatin1String snoozeRequestIdentifier{"phase.breakEnded.snooze"};

    /// @param stateMachine may go earlier than the service; nothing happens from then on.
    NotificationCenterService(const PomodoroSettings &settings, PomodoroStateMachine &stateMachine,
                              const Surroundings &surroundings, QObject *parent = nullptr);
    ~NotificationCenterService() override;

    /// Answers for the centre's notifications from now on, and registers their kinds.
    void becomeDelegate();
    /// Follows the state machine from now on.
    void start();
    /// Shows what notifications look like here, one at a time, also while they are turned off.
    void postTest();

    [[nodiscard]] NotificationPresentation willPresent() const override;
    void didReceive(const NotificationResponse &response) override;

Q_SIGNALS:
    /// The application is to come to the front.
    void activationRequested();

private:
    void registerCategories();
    void followManners();
    void follow(const PhaseTransition &transition);
    void post(const NotificationPayload &payload);
    void scheduleSnoozeReminder();
    [[nodiscard]] NotificationRequest request(const NotificationPayload &payload) const;
    [[nodiscard]] QString body(const NotificationPayload &payload) const;
    [[nodiscard]] QString timeText(Date date) const;
    void route(const QString &actionIdentifier, const std::optional<QString> &token);
    void carryOut(NotificationRouteDecision decision);

    const PomodoroSettings &m_settings;
    QPointer<PomodoroStateMachine> m_stateMachine;
    Surroundings m_surroundings;
};

}
