#pragma once

#include "Foundation/Date.h"
#include "Timer/PomodoroPhase.h"

#include <optional>
#include <QtCore/QUuid>
#include <vector>

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

/// How far the history was read.
struct HistoryPosition
{
    /// How often phases that were stored had changed or gone.
    quint64 rewrites = 0;
    /// The number of the last row; rows that are added have greater ones.
    qint64 lastRow = 0;
};

/// Completed work phases and how far the history was read for them; nothing if the reading failed.
struct CompletedWorkReading
{
    std::vector<CompletedWorkStamp> stamps;
    std::optional<HistoryPosition> position;
};

}
