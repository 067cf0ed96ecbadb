#pragma once

#include "Platform/Ports/SharedFactSource.h"
#include "Platform/X11/X11Watch.h"

#include <chrono>
#include <xcb/sync.h>

namespace tomcatto {

/// Whether keys and pointer of an X server have rested for some time, by alarms on its own count. Main thread only.
class X11Rest final : public SharedFactSource
{
public:
    explicit X11Rest(std::chrono::milliseconds rest)
        : m_rest(rest)
    {
    }

private:
    void begin() override;
    void end() override;
    void note(const xcb_generic_event_t &event);
    /// Tells how it is, and has the server tell when that changes.
    void look();

    std::chrono::milliseconds m_rest;
    std::unique_ptr<X11Watch> m_watch;
    xcb_sync_counter_t m_counter = 0;
    xcb_sync_alarm_t m_alarm = 0;
};

}
