#include "Platform/X11/X11Watch.h"

namespace tomcatto {

X11Watch::X11Watch(Handler onEvent, std::function<void()> onLost)
    : m_onEvent(std::move(onEvent))
    , m_onLost(std::move(onLost))
{
    if (!isOpen())
        return;
    m_notifier.emplace(xcb_get_file_descriptor(m_access.connection()), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] { read(); });
}

void X11Watch::read()
{
    xcb_flush(m_access.connection());
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_access.connection())})
        m_onEvent(*event);
    if (isOpen() || !m_notifier || !m_notifier->isEnabled())
        return;
    m_notifier->setEnabled(false);
    m_onLost();
}

}
