#pragma once

#include <QtCore/QLatin1String>

namespace tomcatto {

/// The kinds of notification; a request's identifier begins with that of its kind.
namespace NotificationCategoryIdentifier {
inline constexpr QLatin1String breakStarted{"phase.breakStarted"};
inline constexpr QLatin1String breakEnded{"phase.breakEnded"};
inline constexpr QLatin1String workEnded{"phase.workEnded"};
inline constexpr QLatin1String breakReady{"phase.breakReady"};
inline constexpr QLatin1String overflowCeiling{"phase.overflowCeiling"};
inline constexpr QLatin1String breakNear{"phase.breakNear"};
inline constexpr QLatin1String away{"phase.away"};
}

namespace NotificationActionIdentifier {
inline constexpr QLatin1String startWork{"phase.action.startWork"};
inline constexpr QLatin1String snooze{"phase.action.snooze"};
inline constexpr QLatin1String takeBreak{"phase.action.takeBreak"};
inline constexpr QLatin1String extend{"phase.action.extend"};
inline constexpr QLatin1String startBreak{"phase.action.startBreak"};
inline constexpr QLatin1String resumeAfterAway{"phase.action.resumeAfterAway"};
inline constexpr QLatin1String takeBreakAfterAway{"phase.action.takeBreakAfterAway"};
}

namespace NotificationUserInfoKey {
/// The token of the phase that the notification is about.
inline constexpr QLatin1String phaseToken{"phaseToken"};
}

namespace NotificationStringKey {
inline constexpr QLatin1String breakStartedTitle{"notifications.break_started.title"};
inline constexpr QLatin1String breakStartedBody{"notifications.break_started.body"};
inline constexpr QLatin1String breakEndedTitle{"notifications.break_ended.title"};
inline constexpr QLatin1String breakEndedBody{"notifications.break_ended.body"};
inline constexpr QLatin1String workEndedTitle{"notifications.work_ended.title"};
inline constexpr QLatin1String workEndedBody{"notifications.work_ended.body"};
inline constexpr QLatin1String breakReadyTitle{"notifications.break_ready.title"};
inline constexpr QLatin1String breakReadyBody{"notifications.break_ready.body"};
inline constexpr QLatin1String breakHeldByCall{"notifications.break_held.call"};
inline constexpr QLatin1String breakHeldByFullScreen{"notifications.break_held.full_screen"};
inline constexpr QLatin1String breakNearTitle{"notifications.break_near.title"};
inline constexpr QLatin1String breakNearBody{"notifications.break_near.body"};
inline constexpr QLatin1String awayTitle{"notifications.away.title"};
inline constexpr QLatin1String awayBody{"notifications.away.body"};
inline constexpr QLatin1String overflowCeilingTitle{"notifications.overflow_ceiling.title"};
inline constexpr QLatin1String overflowCeilingBody{"notifications.overflow_ceiling.body"};
inline constexpr QLatin1String testTitle{"notifications.test.title"};
inline constexpr QLatin1String testBody{"notifications.test.body"};
inline constexpr QLatin1String startWork{"notifications.action.start_work"};
inline constexpr QLatin1String snooze{"notifications.action.snooze"};
inline constexpr QLatin1String takeBreak{"notifications.action.take_break"};
inline constexpr QLatin1String extend{"notifications.action.extend"};
inline constexpr QLatin1String startBreak{"notifications.action.start_break"};
inline constexpr QLatin1String resume{"notifications.action.resume"};
}

}
