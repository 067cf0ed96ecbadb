#pragma once

#include "Foundation/Calendar.h"
#include "Foundation/Cancellable.h"

namespace tomcatto {

/// The time of day and the calendar that the user lives by. Main thread only.
class WallClock
{
public:
    virtual ~WallClock() = default;

    /// The current instant; it may jump either way when the clock is set.
    [[nodiscard]] virtual Date now() const = 0;
    /// The user's calendar as it is now: the system's time zone, first weekday and form of the
    /// time of day, whatever language is chosen.
    [[nodiscard]] virtual Calendar calendar() const = 0;
    /// Calls `changed` when a day begins, the clock was set or the time zone changed. One absolute timer, no polling.
    [[nodiscard]] virtual Cancellable onDayChanged(std::function<void()> changed) = 0;
};

}
