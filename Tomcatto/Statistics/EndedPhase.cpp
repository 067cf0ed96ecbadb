#include "Statistics/EndedPhase.h"

namespace tomcatto {

std::optional<EndedPhase> endedPhase(const PomodoroSessionRecord &record)
{
    const std::optional<PomodoroPhase> phase = fromRawValue<PomodoroPhase>(record.phase);
    if (!phase || *phase == PomodoroPhase::idle)
        return std::nullopt;
    return EndedPhase{.id = record.id,
                      .phase = *phase,
                      .startedAt = record.startedAt,
                      .endedAt = record.endedAt,
                      .plannedSeconds = record.plannedDurationSeconds,
                      .actualSeconds = record.actualDurationSeconds,
                      .cycleIndex = record.cycleIndex,
                      .wasCompleted = record.wasCompleted,
                      .wasSkipped = record.wasSkipped};
}

}
