#include "Platform/X11/X11TrayWatcher.h"

#include <QtCore/QCoreApplication>

namespace tomcatto {

X11TrayWatcher::X11TrayWatcher()
{
    if (!m_display.isValid())
        return;
    m_selection = m_display.atom("_NET_SYSTEM_TRAY_S0");
    m_manager = m_display.atom("MANAGER");
    QCoreApplication::instance()->installNativeEventFilter(this);
    m_owner = watchedOwner();
}

X11TrayWatcher::~X11TrayWatcher() = default;

xcb_window_t X11TrayWatcher::watchedOwner() const
{
    const xcb_window_t owner = m_display.selectionOwner(m_selection);
    if (owner == XCB_WINDOW_NONE)
        return owner;
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_display.connection(), owner, XCB_CW_EVENT_MASK, &mask);
    // It may have gone before its end was watched; the answer comes after the wish took effect.
    return m_display.selectionOwner(m_selection) == owner ? owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11TrayWatcher::nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    constexpr uint8_t sentFlag = 0x80;
    const int type = event->response_type & ~sentFlag;
    if (type == XCB_CLIENT_MESSAGE) {
        const auto *announcement = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (announcement->type == m_manager && announcement->data.data32[1] == m_selection)
            update();
    } else if (type == XCB_DESTROY_NOTIFY) {
        if (m_owner != XCB_WINDOW_NONE &&
            reinterpret_cast<const xcb_destroy_notify_event_t *>(event)->window == m_owner)
            update();
    }
    return false;
}

void X11TrayWatcher::update()
{
    if (const xcb_window_t owner = watchedOwner(); owner != m_owner) {
        m_owner = owner;
        // Not from within the toolkit's handling of the event, which it may still need to note the change itself.
        QMetaObject::invokeMethod(this, &X11TrayWatcher::trayChanged, Qt::QueuedConnection);
    }
}

}
