#include "Widget/WidgetSnapshot.h"

#include "Foundation/EnumTexts.h"
#include "Timer/PhaseSequence.h"

#include <algorithm>

namespace tomcatto {

namespace {

constexpr std::array phaseTexts{"idle", "work", "shortBreak", "longBreak"};

bool isSameInstant(const std::optional<Date> &one, const std::optional<Date> &other)
{
    constexpr Seconds rounding{1};
    return one && other ? *one - *other <= rounding && *other - *one <= rounding : !one && !other;
}

}

QString rawValue(WidgetPhase phase)
{
    return textOf(phaseTexts, phase);
}

std::optional<WidgetPhase> widgetPhaseFromRawValue(QStringView text)
{
    return caseOf<WidgetPhase>(phaseTexts, text);
}

WidgetPhase widgetPhase(PomodoroPhase phase)
{
    switch (phase) {
    case PomodoroPhase::idle:
        return WidgetPhase::idle;
    case PomodoroPhase::working:
        return WidgetPhase::work;
    case PomodoroPhase::shortBreak:
        return WidgetPhase::shortBreak;
    case PomodoroPhase::longBreak:
        return WidgetPhase::longBreak;
    }
    return WidgetPhase::idle;
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
