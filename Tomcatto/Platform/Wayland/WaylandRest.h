#pragma once

#include "Platform/Ports/SharedFactSource.h"
#include "Platform/Wayland/WaylandWatch.h"

#include <chrono>

struct ext_idle_notification_v1;
struct ext_idle_notifier_v1;

namespace tomcatto {

/// Whether keys and pointer have rested for some time, as a Wayland compositor tells it. It counts from the beginning
/// of the watch on, and not while a program such as a player of films keeps the screen on. Main thread only.
class WaylandRest final : public SharedFactSource
{
public:
    explicit WaylandRest(std::chrono::milliseconds rest)
        : m_rest(rest)
    {
    }

private:
    void begin() override;
    void end() override;
    void take(std::string_view interface, uint32_t name);
    void look();

    std::chrono::milliseconds m_rest;
    std::unique_ptr<WaylandWatch> m_watch;
    WaylandObject<wl_seat> m_seat;
    WaylandObject<ext_idle_notifier_v1> m_notifier;
    WaylandObject<ext_idle_notification_v1> m_notification;
};

}
