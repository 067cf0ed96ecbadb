#pragma once

#include "Manners/HoldReason.h"
#include "Timer/PomodoroPhase.h"

#include <optional>

namespace tomcatto {

/// What a notification says, before it has a language.
struct NotificationPayload
{
    QString categoryIdentifier;
    QString titleKey;
    QString bodyKey;

    bool operator==(const NotificationPayload &) const = default;

    static NotificationPayload breakStarted();
    static NotificationPayload breakEnded();
    static NotificationPayload workEnded();
    static NotificationPayload breakReady();
    static NotificationPayload breakHeld(HoldReason reason);
    static NotificationPayload overflowCeiling();
    static NotificationPayload breakNear();
    /// Its body takes the time of day since when.
    static NotificationPayload away();
};

/// What is to be said about a change of phases; nothing about starts, resets and skips from focus to focus.
/// @param isPending the new phase waits to be started
[[nodiscard]] std::optional<NotificationPayload> notificationPayload(PomodoroPhase previous, PomodoroPhase current,
                                                                     bool isPending);

}
