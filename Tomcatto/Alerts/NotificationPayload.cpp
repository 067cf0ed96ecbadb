#include "Alerts/NotificationPayload.h"

#include "Alerts/NotificationIdentifiers.h"

namespace tomcatto {

namespace Category = NotificationCategoryIdentifier;
namespace Key = NotificationStringKey;

NotificationPayload NotificationPayload::breakStarted()
{
    return {Category::breakStarted, Key::breakStartedTitle, Key::breakStartedBody};
}

NotificationPayload NotificationPayload::breakEnded()
{
    return {Category::breakEnded, Key::breakEndedTitle, Key::breakEndedBody};
}

NotificationPayload NotificationPayload::workEnded()
{
    return {Category::workEnded, Key::workEndedTitle, Key::workEndedBody};
}

NotificationPayload NotificationPayload::breakReady()
{
    return {Category::breakReady, Key::breakReadyTitle, Key::breakReadyBody};
}

NotificationPayload NotificationPayload::breakHeld(HoldReason reason)
{
    switch (reason) {
    case HoldReason::call:
        return {Category::breakReady, Key::breakReadyTitle, Key::breakHeldByCall};
    case HoldReason::fullScreen:
        return {Category::breakReady, Key::breakReadyTitle, Key::breakHeldByFullScreen};
    case HoldReason::typing:
        break;
    }
    return breakReady();
}

NotificationPayload NotificationPayload::overflowCeiling()
{
    return {Category::overflowCeiling, Key::overflowCeilingTitle, Key::overflowCeilingBody};
}

NotificationPayload NotificationPayload::breakNear()
{
    return {Category::breakNear, Key::breakNearTitle, Key::breakNearBody};
}

NotificationPayload NotificationPayload::away()
{
    return {Category::away, Key::awayTitle, Key::awayBody};
}

std::optional<NotificationPayload> notificationPayload(PomodoroPhase previous, PomodoroPhase current, bool isPending)
{
    if (previous == PomodoroPhase::working && isBreak(current))
        return isPending ? NotificationPayload::breakReady() : NotificationPayload::breakStarted();
    if (isBreak(previous) && current == PomodoroPhase::working)
        return NotificationPayload::breakEnded();
    return std::nullopt;
}

}
