#pragma once

#include "Foundation/Calendar.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Recording/InFlightSessionMarker.h"

namespace tomcatto {

/// The record of a phase that was running when the application ended: up to the last moment it was seen alive, never
/// beyond its plan (or plan and an hour, where it had reached the plan), without paused time. Nothing if the marker
/// makes no sense or is older than 90 calendar days. Values that do not fit the record are fatal.
[[nodiscard]] std::optional<PomodoroSessionInsertRequest>
recoveredRequest(const InFlightSessionMarker &marker, Date now, const Calendar &calendar, const QUuid &identifier);

}
