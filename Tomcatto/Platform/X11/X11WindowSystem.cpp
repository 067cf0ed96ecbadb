#include "Platform/X11/X11WindowSystem.h"

#include <QtGui/QWindow>

namespace tomcatto {

namespace {

constexpr uint32_t allWorkspaces = 0xFFFFFFFF;
constexpr uint32_t fromApplication = 1;

/// Asks the window manager about a window that it manages already.
void sendToManager(const X11Display &display, xcb_window_t window, xcb_atom_t type,
                   std::initializer_list<uint32_t> data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(display.connection(), 0, display.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
}

/// Whether the window is the manager's already. The toolkit calls a window visible before it is.
bool isMapped(const X11Display &display, xcb_window_t window)
{
    const auto request = xcb_get_window_attributes(display.connection(), window);
    const X11Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(display.connection(), request, nullptr));
    return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
}

std::optional<uint32_t> cardinalOf(const X11Display &display, xcb_window_t window, xcb_atom_t property)
{
    const auto request = xcb_get_property(display.connection(), 0, window, property, XCB_ATOM_CARDINAL, 0, 1);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), request, nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
        return std::nullopt;
    return *static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
}

QList<uint32_t> atomsOf(const X11Display &display, xcb_window_t window, xcb_atom_t property)
{
    constexpr uint32_t most = 64;
    const auto request = xcb_get_property(display.connection(), 0, window, property, XCB_ATOM_ATOM, 0, most);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), request, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / 4};
}

}

void X11WindowSystem::setInTaskbar(QWindow &window, bool isInTaskbar) const
{
    setStates(window, {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}, !isInTaskbar);
}

void X11WindowSystem::setFloating(QWindow &window) const
{
    if (!m_display.isValid())
        return;
    setStates(window,
              {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"},
              true);
    setWorkspace(window, allWorkspaces);
}

void X11WindowSystem::setOnDesktop(QWindow &window, bool isEverywhere) const
{
    if (!m_display.isValid())
        return;
    setStates(window, {"_NET_WM_STATE_BELOW", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}, true);
    setStates(window, {"_NET_WM_STATE_STICKY"}, isEverywhere);
    // A window that was everywhere comes to rest on the workspace that is seen.
    const auto seen = cardinalOf(m_display, m_display.root(), m_display.atom("_NET_CURRENT_DESKTOP"));
    if (isEverywhere || seen)
        setWorkspace(window, isEverywhere ? allWorkspaces : *seen);
}

void X11WindowSystem::setWorkspace(QWindow &window, uint32_t workspace) const
{
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t desktop = m_display.atom("_NET_WM_DESKTOP");
    if (isMapped(m_display, id))
        sendToManager(m_display, id, desktop, {workspace, fromApplication});
    else
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, id, desktop, XCB_ATOM_CARDINAL, 32, 1,
                            &workspace);
    xcb_flush(m_display.connection());
}

void X11WindowSystem::setCovering(QWindow &window) const
{
    if (!m_display.isValid())
        return;
    setFloating(window);
    const auto id = static_cast<xcb_window_t>(window.winId());
    // What the server shows of the window where it was not drawn yet; otherwise that is whatever was there.
    const uint32_t pixel = window.property("color").value<QColor>().rgb() | 0xFF000000;
    xcb_change_window_attributes(m_display.connection(), id, XCB_CW_BACK_PIXEL, &pixel);
    // A covering window gains nothing from a compositor, which costs a copy of each frame.
    constexpr uint32_t bypass = 1;
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, id, m_display.atom("_NET_WM_BYPASS_COMPOSITOR"),
                        XCB_ATOM_CARDINAL, 32, 1, &bypass);
}

void X11WindowSystem::activate(QWindow &window) const
{
    if (!m_display.isValid())
        return;
    constexpr uint32_t fromPager = 2;
    sendToManager(m_display, static_cast<xcb_window_t>(window.winId()), m_display.atom("_NET_ACTIVE_WINDOW"),
                  {fromPager});
    xcb_flush(m_display.connection());
}

void X11WindowSystem::setStates(QWindow &window, const QList<QByteArray> &names, bool isOn) const
{
    if (!m_display.isValid())
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t property = m_display.atom("_NET_WM_STATE");
    const bool isManaged = isMapped(m_display, id);
    QList<uint32_t> states = atomsOf(m_display, id, property);
    for (const QByteArray &name : names) {
        const xcb_atom_t state = m_display.atom(name);
        // A managed window is the manager's to change, one that is not shown yet is ours.
        if (isManaged)
            sendToManager(m_display, id, property, {isOn ? 1U : 0U, state, 0, fromApplication});
        states.removeAll(state);
        if (isOn)
            states.append(state);
    }
    if (!isManaged)
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, id, property, XCB_ATOM_ATOM, 32,
                            static_cast<uint32_t>(states.size()), states.constData());
    xcb_flush(m_display.connection());
}

}
