#include "Platform/X11/X11Tray.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QStyleHints>

namespace tomcatto {

namespace {

/// Device pixels of the server as the toolkit's logical ones: each screen keeps its corner and shrinks from there.
QRect logical(const QRect &device)
{
    const QScreen *found = QGuiApplication::primaryScreen();
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        const QRect area = screen->geometry();
        if (QRect(area.topLeft(), area.size() * screen->devicePixelRatio()).contains(device.topLeft()))
            found = screen;
    }
    if (found == nullptr)
        return device;
    const QPoint corner = found->geometry().topLeft();
    const double ratio = found->devicePixelRatio();
    return {corner + (device.topLeft() - corner) / ratio, device.size() / ratio};
}

QPoint logical(QPoint device)
{
    return logical(QRect(device, QSize())).topLeft();
}

}

X11Tray::X11Tray(const DesktopAppearance &appearance)
    : m_appearance(appearance)
{
    m_settling.setSingleShot(true);
    if (X11Display().isValid())
        m_watch = std::make_unique<X11Watch>([this](const xcb_generic_event_t &event) { note(event); },
                                             [this] {
                                                 m_tray = XCB_WINDOW_NONE;
                                                 m_settling.start();
                                             });
    if (!m_watch || !m_watch->isOpen())
        return;
    m_settling.callOnTimeout(this, &X11Tray::settle);
    const X11Display display = m_watch->display();
    m_selection = display.atom("_NET_SYSTEM_TRAY_S0");
    m_manager = display.atom("MANAGER");
    const uint32_t announcements = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(display.connection(), display.root(), XCB_CW_EVENT_MASK, &announcements);
    look();
    m_told = {isHosted(), m_edge};
    m_watch->read();
}

X11Tray::~X11Tray() = default;

std::optional<QRect> X11Tray::geometry() const
{
    if (!m_window || !m_window->edge())
        return std::nullopt;
    // Over the toolkit's connection, which does not bring along events that are read here.
    const X11Display display;
    const auto request = xcb_translate_coordinates(display.connection(), m_window->id(), display.root(), 0, 0);
    const X11Reply<xcb_translate_coordinates_reply_t> reply(
        xcb_translate_coordinates_reply(display.connection(), request, nullptr));
    if (!reply)
        return std::nullopt;
    return logical(QRect({reply->dst_x, reply->dst_y}, m_window->size()));
}

void X11Tray::setShown(bool isShown)
{
    if (std::exchange(m_isShown, isShown) != isShown)
        m_settling.start();
}

void X11Tray::show(const StatusItemPresentation &presentation)
{
    m_hint.setText(presentation.toolTip);
    if (presentation.squareIcons == m_pictures)
        return;
    m_pictures = presentation.squareIcons;
    // Without a picture the window goes, with the first it comes.
    if (m_pictures.empty() || !m_window || !m_window->show(m_pictures))
        m_settling.start();
}

void X11Tray::note(const xcb_generic_event_t &event)
{
    if (m_window && m_window->note(event))
        m_settling.start();
    constexpr uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_CLIENT_MESSAGE: {
        const auto &announcement = reinterpret_cast<const xcb_client_message_event_t &>(event);
        if (announcement.type != m_manager || announcement.data.data32[1] != m_selection)
            break;
        m_isPutOut = false;
        m_mustLook = true;
        m_settling.start();
        break;
    }
    case XCB_DESTROY_NOTIFY:
        m_mustLook = m_mustLook || reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == m_tray;
        m_settling.start();
        break;
    case XCB_ENTER_NOTIFY:
    case XCB_MOTION_NOTIFY: {
        // Both begin alike.
        const auto &move = reinterpret_cast<const xcb_motion_notify_event_t &>(event);
        pointAt({move.root_x, move.root_y});
        break;
    }
    case XCB_LEAVE_NOTIFY:
        // With a grab the pointer seems to leave, and something opens.
        if (reinterpret_cast<const xcb_leave_notify_event_t &>(event).mode == XCB_NOTIFY_MODE_NORMAL)
            m_hint.hide();
        else
            m_hint.dismiss();
        break;
    case XCB_BUTTON_PRESS:
        press(reinterpret_cast<const xcb_button_press_event_t &>(event));
        break;
    default:
        break;
    }
}

void X11Tray::pointAt(QPoint place)
{
    m_hint.setDark(m_appearance.dark());
    m_hint.pointerAt(logical(place));
}

void X11Tray::onceToolkitHas(std::function<void()> action)
{
    // The watch on presses anywhere hears of this one over the toolkit's connection. Heard later, it would count as
    // one elsewhere and close what opens now. The answer brings along all events before it, and the turn after the next
    // is one in which they have been told.
    static_cast<void>(X11Display().selectionOwner(m_selection));
    const auto nextTurn = [this](const std::function<void()> &then) {
        QMetaObject::invokeMethod(this, then, Qt::QueuedConnection);
    };
    nextTurn([nextTurn, action = std::move(action)] { nextTurn(action); });
}

void X11Tray::press(const xcb_button_press_event_t &event)
{
    // Else the pointer stays here until the button is up, and what opens now would not get it.
    xcb_connection_t *const connection = m_watch->display().connection();
    xcb_ungrab_pointer(connection, XCB_CURRENT_TIME);
    xcb_flush(connection);
    m_hint.dismiss();
    const auto longest = static_cast<uint32_t>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const bool isSecond = event.detail == m_button && event.time - m_pressed < longest;
    m_button = isSecond ? 0 : event.detail;
    m_pressed = event.time;
    // The first one has done it.
    if (isSecond || !m_window)
        return;
    const QPoint place(event.root_x, event.root_y);
    if (event.detail == XCB_BUTTON_INDEX_1 || event.detail == XCB_BUTTON_INDEX_2)
        onceToolkitHas([this, item = logical(QRect(place - QPoint(event.event_x, event.event_y), m_window->size()))] {
            Q_EMIT activated(item);
        });
    else if (event.detail == XCB_BUTTON_INDEX_3)
        onceToolkitHas([this, place = logical(place)] { Q_EMIT menuWanted(place); });
}

void X11Tray::settle()
{
    if (m_watch->isOpen() && std::exchange(m_mustLook, false))
        look();
    update();
    tell();
    // What the answers brought along.
    m_watch->read();
}

void X11Tray::look()
{
    const X11Display display = m_watch->display();
    xcb_window_t tray = display.selectionOwner(m_selection);
    if (tray != XCB_WINDOW_NONE) {
        const uint32_t end = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(display.connection(), tray, XCB_CW_EVENT_MASK, &end);
        // It may have gone before its end was watched; the answer comes after the wish took effect.
        if (display.selectionOwner(m_selection) != tray)
            tray = XCB_WINDOW_NONE;
    }
    if (std::exchange(m_tray, tray) == tray)
        return;
    m_window.reset();
    m_isPutOut = false;
}

void X11Tray::update()
{
    m_isPutOut = m_isPutOut || (m_window && m_window->isLost());
    // Without a picture the tray would keep an empty place.
    if (!m_isShown || !isHosted() || m_pictures.empty()) {
        m_hint.hide();
        m_window.reset();
        return;
    }
    if (!m_window)
        m_window.emplace(m_watch->display(), m_tray);
    if (!m_window->show(m_pictures))
        m_window->refresh();
}

void X11Tray::tell()
{
    constexpr int leastEdge = 8;
    if (const auto edge = m_window ? m_window->edge() : std::nullopt; edge && *edge >= leastEdge)
        m_edge = *edge;
    const std::pair now(isHosted(), m_edge);
    if (std::exchange(m_told, now) != now)
        Q_EMIT hostChanged();
}

}
