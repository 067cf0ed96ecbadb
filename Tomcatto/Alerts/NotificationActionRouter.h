#pragma once

#include "Timer/PomodoroPhase.h"

#include <optional>

namespace tomcatto {

/// What the user's answer to a notification leads to.
enum class NotificationRouteDecision {
    ignore,
    startWork,
    snooze,
    takeBreak,
    extend,
    openApp,
    resumeAfterAway,
    takeBreakAfterAway
};

/// The state of the application that a user's answer meets.
struct NotificationRouteState
{
    QString phaseToken;
    PomodoroPhase phase = PomodoroPhase::idle;
    /// The introduction was finished.
    bool isInUse = false;
    bool isOverflowing = false;
    bool isPending = false;
    /// The phase is paused since the person was away, and they are back.
    bool isBackFromAway = false;
};

/// Decides what becomes of a user's answer. One that belongs to an earlier phase does nothing, except that a press on
/// the notification itself always opens the application.
namespace NotificationActionRouter {

/// @param token the phase that the notification was about; `nullopt` if it does not say
[[nodiscard]] NotificationRouteDecision decision(const QString &actionIdentifier, const std::optional<QString> &token,
                                                 const NotificationRouteState &state);

}

}
