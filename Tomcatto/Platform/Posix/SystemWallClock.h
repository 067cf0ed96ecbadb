#pragma once

#include "Foundation/HandlerList.h"
#include "Platform/Ports/WallClock.h"
#include "Platform/Posix/DayTimer.h"
#include "Platform/Posix/SystemCalendar.h"

namespace tomcatto {

/// The system's clock and the user's calendar. The timer is made with the first subscription, so a process that only
/// asks for the time pays nothing for it.
class SystemWallClock final : public QObject, public WallClock
{
    Q_OBJECT

public:
    using TimerMaker = std::function<std::unique_ptr<DayTimer>()>;

    /// @param makeTimer makes a timer that tells of a new time zone as well, if the system does.
    explicit SystemWallClock(TimerMaker makeTimer);
    ~SystemWallClock() override;

    [[nodiscard]] Date now() const override;
    [[nodiscard]] Calendar calendar() const override;
    [[nodiscard]] Cancellable onDayChanged(std::function<void()> changed) override;

private:
    void watch();
    void armForMidnight() const;
    void announceDay();

    TimerMaker m_makeTimer;
    mutable SystemCalendar m_calendar;
    /// The zone that the timer was armed in; a change that nobody announced shows up when the calendar is read.
    mutable QTimeZone m_armedZone;
    std::unique_ptr<DayTimer> m_dayTimer;
    HandlerList m_dayChanged;
};

}
