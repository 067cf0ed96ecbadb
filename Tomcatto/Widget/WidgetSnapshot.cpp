#include "Widget/WidgetSnapshot.h"

#include "Timer/PhaseSequence.h"

#include <algorithm>

namespace tomcatto {

namespace {

bool isSameInstant(const std::optional<Date> &one, const std::optional<Date> &other)
{
    constexpr Seconds rounding{1};
    return one && other ? *one - *other <= rounding && *other - *one <= rounding : !one && !other;
}

}

WidgetPhase widgetPhase(PomodoroPhase phase)
{
    // They have the same texts.
    return fromRawValue<WidgetPhase>(rawValue(phase)).value_or(WidgetPhase::idle);
}

WidgetPhase nextPhase(PomodoroPhase current, qint64 cycleIndex, qint64 cyclesPerSet)
{
    return widgetPhase(phaseAfter({current, cycleIndex}, std::max<qint64>(cyclesPerSet, 1)).phase);
}

bool differInTimeOnly(WidgetSnapshot one, const WidgetSnapshot &other)
{
    if (!isSameInstant(one.phaseEndsAt, other.phaseEndsAt) ||
        !isSameInstant(one.overflowStartedAt, other.overflowStartedAt))
        return false;
    one.phaseEndsAt = other.phaseEndsAt;
    one.overflowStartedAt = other.overflowStartedAt;
    if (other.phaseEndsAt || other.overflowStartedAt)
        one.staticSeconds = other.staticSeconds;
    return one == other;
}

}
