#include "Widget/WidgetSnapshot.h"

#include "Foundation/CheckedArithmetic.h"

#include <algorithm>
#include <array>

namespace tomcatto {

namespace {

bool isSameInstant(const std::optional<Date> &one, const std::optional<Date> &other)
{
    constexpr Seconds rounding{1};
    return one && other ? *one - *other <= rounding && *other - *one <= rounding : !one && !other;
}

}

QString rawValue(WidgetPhase phase)
{
    switch (phase) {
    case WidgetPhase::idle:
        return QStringLiteral("idle");
    case WidgetPhase::work:
        return QStringLiteral("work");
    case WidgetPhase::shortBreak:
        return QStringLiteral("shortBreak");
    case WidgetPhase::longBreak:
        return QStringLiteral("longBreak");
    }
    return {};
}

std::optional<WidgetPhase> widgetPhaseFromRawValue(QStringView text)
{
    using enum WidgetPhase;
    for (const WidgetPhase phase : std::array{idle, work, shortBreak, longBreak}) {
        if (rawValue(phase) == text)
            return phase;
    }
    return std::nullopt;
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
    if (current != PomodoroPhase::working)
        return WidgetPhase::work;
    const qint64 cycles = std::max<qint64>(cyclesPerSet, 1);
    return checkedAdd<qint64>(cycleIndex, 1) % cycles == 0 ? WidgetPhase::longBreak : WidgetPhase::shortBreak;
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
