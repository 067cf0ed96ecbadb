#include "Platform/Wayland/WaylandWatch.h"

namespace tomcatto {

WaylandWatch::WaylandWatch(Handlers handlers)
    : m_handlers(std::move(handlers))
    , m_display(wl_display_connect(nullptr))
{
    if (m_display == nullptr) {
        QMetaObject::invokeMethod(&m_notifier, m_handlers.onLost, Qt::QueuedConnection);
        return;
    }
    m_notifier.setSocket(wl_display_get_fd(m_display));
    m_notifier.setEnabled(true);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    greet();
}

WaylandWatch::~WaylandWatch()
{
    m_notifier.setEnabled(false);
    m_greeting.reset();
    m_registry.reset();
    if (m_display != nullptr)
        wl_display_disconnect(m_display);
}

void WaylandWatch::greet()
{
    static constexpr wl_registry_listener offers{
        [](void *self, wl_registry *, uint32_t name, const char *interface, uint32_t version) {
            static_cast<WaylandWatch *>(self)->m_handlers.onOffered(interface, name, version);
        },
        [](void *, wl_registry *, uint32_t) {}};
    static constexpr wl_callback_listener end{
        [](void *self, wl_callback *, uint32_t) { static_cast<WaylandWatch *>(self)->m_greeting.reset(); }};
    m_registry.reset(wl_display_get_registry(m_display));
    wl_registry_add_listener(m_registry.get(), &offers, this);
    m_greeting.reset(wl_display_sync(m_display));
    wl_callback_add_listener(m_greeting.get(), &end, this);
    wl_display_flush(m_display);
}

void WaylandWatch::read()
{
    while (wl_display_prepare_read(m_display) != 0)
        wl_display_dispatch_pending(m_display);
    if (wl_display_read_events(m_display) < 0 || wl_display_dispatch_pending(m_display) < 0) {
        m_notifier.setEnabled(false);
        return m_handlers.onLost();
    }
    if (!m_greeting)
        m_handlers.onRead();
    wl_display_flush(m_display);
}

}
