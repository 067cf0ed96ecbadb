#pragma once

#include "Foundation/Date.h"
#include "Timer/PomodoroPhase.h"

#include <optional>
#include <QtCore/QUuid>

namespace tomcatto {

/// One ended phase, as the timer hands it to the store.
struct PomodoroSessionInsertRequest
{
    QUuid id;
    PomodoroPhase phase = PomodoroPhase::idle;
    Date startedAt;
    Date endedAt;
    qint64 plannedDurationSeconds = 0;
    qint64 actualDurationSeconds = 0;
    qint64 cycleIndex = 0;
    bool wasCompleted = false;
    bool wasSkipped = false;

    bool operator==(const PomodoroSessionInsertRequest &) const = default;
};

/// One stored phase. What a foreign row may lack is optional; the phase is the stored text, known or not.
struct PomodoroSessionRecord
{
    QUuid id;
    QString phase;
    std::optional<Date> startedAt;
    std::optional<Date> endedAt;
    qint32 plannedDurationSeconds = 0;
    qint32 actualDurationSeconds = 0;
    qint16 cycleIndex = 0;
    bool wasCompleted = false;
    bool wasSkipped = false;

    bool operator==(const PomodoroSessionRecord &) const = default;
};

/// One completed work phase, as the statistics need it.
struct CompletedWorkStamp
{
    Date startedAt;
    qint64 actualSeconds = 0;

    bool operator==(const CompletedWorkStamp &) const = default;
};

}
