#include "Alerts/NotificationActionRouter.h"

#include "Alerts/NotificationIdentifiers.h"
#include "Platform/Ports/UserNotificationCenter.h"

namespace tomcatto {

namespace {

using Decision = NotificationRouteDecision;

Decision decisionForButton(const QString &action, const NotificationRouteState &state)
{
    namespace Action = NotificationActionIdentifier;
    const bool isWorking = state.phase == PomodoroPhase::working;
    if (action == Action::startWork)
        return isWorking ? Decision::startWork : Decision::ignore;
    if (action == Action::snooze)
        return isWorking ? Decision::snooze : Decision::ignore;
    if (action == Action::takeBreak)
        return isWorking && state.isOverflowing ? Decision::takeBreak : Decision::ignore;
    // A break that is ready begins as one that is taken does.
    if (action == Action::startBreak)
        return isBreak(state.phase) && state.isPending ? Decision::takeBreak : Decision::ignore;
    if (action == Action::resumeAfterAway)
        return state.isBackFromAway ? Decision::resumeAfterAway : Decision::ignore;
    if (action == Action::takeBreakAfterAway)
        return state.isBackFromAway ? Decision::takeBreakAfterAway : Decision::ignore;
    return action == Action::extend ? Decision::extend : Decision::ignore;
}

}

Decision NotificationActionRouter::decision(const QString &actionIdentifier, const std::optional<QString> &token,
                                            const NotificationRouteState &state)
{
    if (!state.isInUse)
        return Decision::ignore;
    if (actionIdentifier == UserNotificationCenter::defaultActionIdentifier)
        return Decision::openApp;
    if (actionIdentifier == UserNotificationCenter::dismissActionIdentifier)
        return Decision::ignore;
    if (token != state.phaseToken || state.phase == PomodoroPhase::idle)
        return Decision::ignore;
    return decisionForButton(actionIdentifier, state);
}

}
