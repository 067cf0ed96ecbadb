#include "Platform/Posix/SystemWallClock.h"

#include <chrono>

namespace tomcatto {

SystemWallClock::SystemWallClock(TimerMaker makeTimer)
    : m_makeTimer(std::move(makeTimer))
{
}

SystemWallClock::~SystemWallClock() = default;

Date SystemWallClock::now() const
{
    return Date(std::chrono::system_clock::now());
}

Calendar SystemWallClock::calendar() const
{
    Calendar calendar = m_calendar.current();
    if (m_dayTimer && calendar.timeZone != m_armedZone)
        armForMidnight();
    return calendar;
}

Cancellable SystemWallClock::onDayChanged(std::function<void()> changed)
{
    if (!m_dayTimer)
        watch();
    return m_dayChanged.add(std::move(changed));
}

void SystemWallClock::watch()
{
    m_dayTimer = m_makeTimer();
    connect(m_dayTimer.get(), &DayTimer::fired, this, &SystemWallClock::announceDay);
    armForMidnight();
}

void SystemWallClock::armForMidnight() const
{
    const Calendar &calendar = m_calendar.current();
    m_armedZone = calendar.timeZone;
    m_dayTimer->arm(calendar.startOfDay(calendar.dayOf(now()).addDays(1)));
}

void SystemWallClock::announceDay()
{
    armForMidnight();
    m_dayChanged.call();
}

}
