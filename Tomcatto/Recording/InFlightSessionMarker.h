#pragma once

#include "Foundation/Date.h"

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tomcatto {

/// Describes the phase that is running, so that one cut short by a crash or a power loss still enters the history.
struct InFlightSessionMarker
{
    /// Stored text of the phase.
    QString phase;
    Date startedAt;
    qint64 plannedDurationSeconds = 0;
    qint64 cycleIndex = 0;
    /// Whole seconds paused up to the last resume.
    std::optional<qint64> pausedSeconds;
    /// When the current pause began; absent while running.
    std::optional<Date> pausedAt;
    /// When the phase reached its planned end.
    std::optional<Date> reachedPlanAt;
    /// When the application was last known to be alive with the phase running.
    std::optional<Date> lastActiveAt;

    bool operator==(const InFlightSessionMarker &) const = default;
};

/// The marker as one JSON object with the fields' names as keys, in their order; dates are seconds since 1970 in UTC
/// with fractions, absent fields are left out.
[[nodiscard]] QByteArray encoded(const InFlightSessionMarker &marker);

/// The marker of such an object; nothing for anything else, a wrong type included.
[[nodiscard]] std::optional<InFlightSessionMarker> decodedMarker(const QByteArray &json);

}
