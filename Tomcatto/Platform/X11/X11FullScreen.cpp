#include "Platform/X11/X11FullScreen.h"

#include <algorithm>
#include <QtCore/QCoreApplication>

namespace tomcatto {

namespace {

constexpr uint32_t followedEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

/// The 32-bit items of a property; empty where the window or the property is gone.
std::vector<uint32_t> itemsOf(const X11Display &display, xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
{
    constexpr uint32_t most = 64;
    const auto request = xcb_get_property(display.connection(), 0, window, property, type, 0, most);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), request, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *const first = static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

xcb_window_t windowIn(const X11Display &display, xcb_window_t window, xcb_atom_t property)
{
    const std::vector<uint32_t> items = itemsOf(display, window, property, XCB_ATOM_WINDOW);
    return items.empty() ? static_cast<xcb_window_t>(XCB_WINDOW_NONE) : items.front();
}

/// Whether this process or another of the application made the window: its class is the application's name.
bool isOwn(const X11Display &display, xcb_window_t window)
{
    constexpr uint32_t most = 64;
    const auto request = xcb_get_property(display.connection(), 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, most);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), request, nullptr));
    if (!reply)
        return false;
    const QByteArray texts(static_cast<const char *>(xcb_get_property_value(reply.get())),
                           xcb_get_property_value_length(reply.get()));
    // The name of the instance stands before it. The toolkit makes its first letter a capital.
    return texts.split('\0').value(1).compare(QCoreApplication::applicationName().toUtf8(), Qt::CaseInsensitive) == 0;
}

}

void X11FullScreen::begin()
{
    m_watch = std::make_unique<X11Watch>([this](const xcb_generic_event_t &event) { note(event); },
                                         [this] { tell(Fact::untold); });
    if (!m_watch->isOpen()) {
        m_watch.reset();
        return tell(Fact::untold);
    }
    const X11Display display = m_watch->display();
    m_atoms = {display.atom("_NET_SUPPORTING_WM_CHECK"), display.atom("_NET_ACTIVE_WINDOW"),
               display.atom("_NET_WM_STATE"), display.atom("_NET_WM_STATE_FULLSCREEN"),
               display.atom("_NET_WM_STATE_HIDDEN")};
    follow(display.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    look();
    m_watch->read();
}

void X11FullScreen::end()
{
    m_watch.reset();
    m_window = XCB_WINDOW_NONE;
}

void X11FullScreen::note(const xcb_generic_event_t &event)
{
    constexpr uint8_t sentFlag = 0x80;
    const int type = event.response_type & ~sentFlag;
    const auto changed = type == XCB_PROPERTY_NOTIFY ? reinterpret_cast<const xcb_property_notify_event_t &>(event).atom
                                                     : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    if (type == XCB_DESTROY_NOTIFY || type == XCB_UNMAP_NOTIFY || changed == m_atoms.manager ||
        changed == m_atoms.active || changed == m_atoms.state)
        look();
}

void X11FullScreen::look()
{
    tell(presentFact());
}

Fact X11FullScreen::presentFact()
{
    const X11Display display = m_watch->display();
    if (managersWindow() == XCB_WINDOW_NONE)
        return Fact::untold;
    const xcb_window_t active = windowIn(display, display.root(), m_atoms.active);
    if (active != m_window && !isOwn(display, active)) {
        follow(m_window, XCB_EVENT_MASK_NO_EVENT);
        m_window = active;
        follow(m_window, followedEvents);
    }
    return isFullScreen(m_window) ? Fact::yes : Fact::no;
}

/// The window by which a manager shows that it is there; what it left on the root window may outlive it.
xcb_window_t X11FullScreen::managersWindow() const
{
    const X11Display display = m_watch->display();
    const xcb_window_t window = windowIn(display, display.root(), m_atoms.manager);
    if (window == XCB_WINDOW_NONE)
        return window;
    follow(window, followedEvents);
    return windowIn(display, window, m_atoms.manager) == window ? window : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11FullScreen::isFullScreen(xcb_window_t window) const
{
    if (window == XCB_WINDOW_NONE)
        return false;
    const std::vector<uint32_t> states = itemsOf(m_watch->display(), window, m_atoms.state, XCB_ATOM_ATOM);
    return std::ranges::find(states, m_atoms.fullScreen) != states.end() &&
           std::ranges::find(states, m_atoms.hidden) == states.end();
}

void X11FullScreen::follow(xcb_window_t window, uint32_t events) const
{
    // A window that is gone meanwhile is an error that comes as an event, and is none of those looked for.
    xcb_change_window_attributes(m_watch->display().connection(), window, XCB_CW_EVENT_MASK, &events);
}

}
