#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"

namespace tomcatto {

/// One ended phase as the session log shows it.
struct EndedPhase
{
    QUuid id;
    PomodoroPhase phase = PomodoroPhase::working;
    std::optional<Date> startedAt;
    std::optional<Date> endedAt;
    qint64 plannedSeconds = 0;
    qint64 actualSeconds = 0;
    qint64 cycleIndex = 0;
    bool wasCompleted = false;
    bool wasSkipped = false;

    bool operator==(const EndedPhase &) const = default;
};

/// The record as an ended phase; nothing when its text is not a phase that can end ("work", "shortBreak", "longBreak").
[[nodiscard]] std::optional<EndedPhase> endedPhase(const PomodoroSessionRecord &record);

}
