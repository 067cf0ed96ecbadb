#pragma once

#include "Platform/Ports/WallClock.h"

#include <map>

namespace tomcatto {

/// A wall clock and calendar that a test sets by hand.
class ManualWallClock final : public WallClock
{
public:
    explicit ManualWallClock(Date now = dateFromSeconds(1'760'000'000),
                             Calendar calendar = {QTimeZone::utc(), Qt::Monday})
        : m_now(now)
        , m_calendar(std::move(calendar))
    {
    }

    [[nodiscard]] Date now() const override { return m_now; }
    [[nodiscard]] Calendar calendar() const override { return m_calendar; }
    [[nodiscard]] Cancellable onDayChanged(std::function<void()> changed) override
    {
        const int key = ++m_lastKey;
        m_handlers.emplace(key, std::move(changed));
        return Cancellable([this, key] { m_handlers.erase(key); });
    }

    void setNow(Date now) { m_now = now; }
    void advance(Seconds span) { m_now += span; }
    void setCalendar(Calendar calendar) { m_calendar = std::move(calendar); }
    void announceDay()
    {
        for (const auto &[key, handler] : std::map(m_handlers))
            handler();
    }

private:
    Date m_now;
    Calendar m_calendar;
    std::map<int, std::function<void()>> m_handlers;
    int m_lastKey = 0;
};

}
