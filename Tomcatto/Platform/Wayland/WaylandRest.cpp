#include "Platform/Wayland/WaylandRest.h"

#include <ext-idle-notify-v1-client-header.h>

namespace tomcatto {

void WaylandRest::begin()
{
    m_watch = std::make_unique<WaylandWatch>(
        WaylandWatch::Handlers{[this](std::string_view interface, uint32_t name, uint32_t) { take(interface, name); },
                               [this] { look(); }, [this] { tell(Fact::untold); }});
}

void WaylandRest::end()
{
    m_notification.reset();
    m_notifier.reset();
    m_seat.reset();
    m_watch.reset();
}

void WaylandRest::take(std::string_view interface, uint32_t name)
{
    if (interface == ext_idle_notifier_v1_interface.name && !m_notifier)
        m_notifier = m_watch->bind<ext_idle_notifier_v1>(name, ext_idle_notifier_v1_interface, 1);
    else if (interface == wl_seat_interface.name && !m_seat)
        m_seat = m_watch->bind<wl_seat>(name, wl_seat_interface, 1);
}

void WaylandRest::look()
{
    if (m_notification)
        return;
    if (!m_notifier || !m_seat)
        return tell(Fact::untold);
    static constexpr ext_idle_notification_v1_listener listener{
        [](void *self, ext_idle_notification_v1 *) { static_cast<WaylandRest *>(self)->tell(Fact::yes); },
        [](void *self, ext_idle_notification_v1 *) { static_cast<WaylandRest *>(self)->tell(Fact::no); }};
    m_notification.reset(ext_idle_notifier_v1_get_idle_notification(
        m_notifier.get(), static_cast<uint32_t>(m_rest.count()), m_seat.get()));
    ext_idle_notification_v1_add_listener(m_notification.get(), &listener, this);
    tell(Fact::no);
}

}
