#include "Recording/InFlightSessionRecovery.h"

#include "Foundation/CheckedArithmetic.h"
#include "Timer/PhaseSequence.h"

#include <algorithm>

namespace tomcatto {

namespace {

constexpr qint64 oldestMarkerDays = 90;

bool isPlausible(const InFlightSessionMarker &marker, Date now, const Calendar &calendar)
{
    const auto oldest = calendar.addingDays(now, -oldestMarkerDays);
    return marker.plannedDurationSeconds >= 1 && marker.startedAt <= now && oldest && marker.startedAt >= *oldest;
}

}

std::optional<PomodoroSessionInsertRequest> recoveredRequest(const InFlightSessionMarker &marker, Date now,
                                                             const Calendar &calendar, const QUuid &identifier)
{
    const auto phase = fromRawValue<PomodoroPhase>(marker.phase);
    if (!phase || *phase == PomodoroPhase::idle || !isPlausible(marker, now, calendar))
        return std::nullopt;
    const Seconds paused{static_cast<double>(std::max<qint64>(marker.pausedSeconds.value_or(0), 0))};
    const Date seen = marker.pausedAt ? *marker.pausedAt : marker.lastActiveAt.value_or(now);
    const Date lastSeen = std::min(seen, now);
    const bool reachedPlan = marker.reachedPlanAt.has_value();
    const auto plan = checkedNarrow<qint32>(marker.plannedDurationSeconds);
    const Seconds cap{static_cast<double>(checkedAdd<qint64>(plan, reachedPlan ? overflowCeilingSeconds : 0))};
    const Seconds active = std::min(std::max(Seconds(lastSeen - marker.startedAt) - paused, Seconds::zero()), cap);

    PomodoroSessionInsertRequest request;
    request.id = identifier;
    request.phase = *phase;
    request.startedAt = marker.startedAt;
    request.endedAt = std::min(marker.startedAt + paused + active, now);
    request.plannedDurationSeconds = plan;
    request.actualDurationSeconds = checkedNarrow<qint32>(static_cast<qint64>(active.count()));
    request.cycleIndex = checkedNarrow<qint16>(marker.cycleIndex);
    request.wasCompleted = reachedPlan;
    request.wasSkipped = false;
    return request;
}

}
