#include "Platform/X11/X11TrayWindow.h"

#include "Foundation/ApplicationIdentity.h"

#include <algorithm>
#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

namespace tomcatto {

namespace {

/// In logical pixels. Trays take it where they have no size of their own.
constexpr int usualEdge = 22;
/// A picture of that edge is the largest that fits in one request of the protocol.
constexpr int mostEdge = 255;
constexpr uint8_t translucentDepth = 32;
constexpr uint32_t followedEvents = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_ENTER_WINDOW |
                                    XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_POINTER_MOTION;

/// The server's pixels of a depth; for those that nobody has today, what draws nothing.
QImage::Format formatOf(uint8_t depth)
{
    switch (depth) {
    case translucentDepth:
        return QImage::Format_ARGB32_Premultiplied;
    case 30:
        return QImage::Format_RGB30;
    case 24:
        return QImage::Format_RGB32;
    case 16:
        return QImage::Format_RGB16;
    default:
        return QImage::Format_Invalid;
    }
}

/// The visual that a tray wants its windows to have; 0 where it does not say.
xcb_visualid_t wantedVisual(const X11Display &display, xcb_window_t tray)
{
    const auto request = xcb_get_property(display.connection(), 0, tray, display.atom("_NET_SYSTEM_TRAY_VISUAL"),
                                          XCB_ATOM_VISUALID, 0, 1);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), request, nullptr));
    if (!reply || reply->format != 32 || reply->value_len == 0)
        return 0;
    return *static_cast<const xcb_visualid_t *>(xcb_get_property_value(reply.get()));
}

/// The depth of a visual; 0 where the screen does not have it.
uint8_t depthOf(xcb_visualid_t visual, const xcb_screen_t &screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
        const auto *const visuals = xcb_depth_visuals(depth.data);
        if (std::any_of(visuals, visuals + xcb_depth_visuals_length(depth.data),
                        [&](const xcb_visualtype_t &each) { return each.visual_id == visual; }))
            return depth.data->depth;
    }
    return 0;
}

/// The largest that fits as it is, else the smallest made to fit.
QImage fitting(const std::vector<QImage> &pictures, int edge)
{
    const QImage *best = nullptr;
    for (const QImage &each : pictures) {
        const bool fits = each.width() <= edge;
        if (best == nullptr || (fits == (best->width() <= edge) ? fits == (each.width() > best->width()) : fits))
            best = &each;
    }
    if (best == nullptr || best->width() <= edge)
        return best == nullptr ? QImage() : *best;
    return best->scaled(edge, edge, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}

X11TrayWindow::X11TrayWindow(const X11Display &display, xcb_window_t tray)
    : m_connection(display.connection())
    , m_root(display.root())
    , m_window(xcb_generate_id(m_connection))
    , m_context(xcb_generate_id(m_connection))
    , m_colours(xcb_generate_id(m_connection))
{
    const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    const xcb_visualid_t wanted = wantedVisual(display, tray);
    m_depth = depthOf(wanted, screen);
    if (m_depth == 0)
        m_depth = screen.root_depth;
    make(display, m_depth == screen.root_depth ? screen.root_visual : wanted);
    describe(display);
    askForPlace(display, tray);
}

X11TrayWindow::~X11TrayWindow()
{
    xcb_free_gc(m_connection, m_context);
    xcb_destroy_window(m_connection, m_window);
    xcb_free_colormap(m_connection, m_colours);
    xcb_flush(m_connection);
}

void X11TrayWindow::make(const X11Display &display, xcb_visualid_t visual)
{
    const auto edge = static_cast<uint16_t>(qRound(usualEdge * qGuiApp->devicePixelRatio()));
    m_size = QSize(edge, edge);
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, m_colours, display.root(), visual);
    constexpr uint32_t attributes = XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP;
    // In a visual of another depth than the root's the server takes no window without these colours.
    const uint32_t values[] = {0, 0, followedEvents, m_colours};
    xcb_create_window(m_connection, m_depth, m_window, display.root(), 0, 0, edge, edge, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual, attributes, values);
    xcb_create_gc(m_connection, m_context, m_window, 0, nullptr);
}

void X11TrayWindow::describe(const X11Display &display)
{
    const auto set = [&](xcb_atom_t property, xcb_atom_t type, uint8_t format, uint32_t count, const void *data) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, property, type, format, count, data);
    };
    const auto setText = [&](xcb_atom_t property, xcb_atom_t type, const QByteArray &text) {
        set(property, type, 8, static_cast<uint32_t>(text.size()), text.constData());
    };
    const QByteArray name = productName.toUtf8();
    setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, name);
    setText(display.atom("_NET_WM_NAME"), display.atom("UTF8_STRING"), name);
    setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, name.toLower() + '\0' + name + '\0');
    constexpr uint32_t minimumSize = 1U << 4;
    const auto edge = static_cast<uint32_t>(m_size.width());
    const uint32_t sizeHints[18] = {minimumSize, 0, 0, 0, 0, edge, edge};
    set(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, std::size(sizeHints), sizeHints);
    const xcb_atom_t embedding = display.atom("_XEMBED_INFO");
    constexpr uint32_t version = 0;
    constexpr uint32_t toBeMapped = 1;
    const uint32_t embeddingInfo[] = {version, toBeMapped};
    set(embedding, embedding, 32, std::size(embeddingInfo), embeddingInfo);
}

void X11TrayWindow::askForPlace(const X11Display &display, xcb_window_t tray) const
{
    constexpr uint32_t dockRequest = 0;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = tray;
    event.type = display.atom("_NET_SYSTEM_TRAY_OPCODE");
    event.data.data32[0] = XCB_CURRENT_TIME;
    event.data.data32[1] = dockRequest;
    event.data.data32[2] = m_window;
    xcb_send_event(m_connection, 0, tray, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection);
}

std::optional<int> X11TrayWindow::edge() const
{
    return m_state == State::takenIn ? std::optional(std::min({m_size.width(), m_size.height(), mostEdge}))
                                     : std::nullopt;
}

bool X11TrayWindow::note(const xcb_generic_event_t &event)
{
    constexpr uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_EXPOSE:
        if (reinterpret_cast<const xcb_expose_event_t &>(event).window != m_window)
            return false;
        return m_isSeen = m_isStale = true;
    case XCB_UNMAP_NOTIFY:
        if (reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window == m_window)
            m_isSeen = false;
        return false;
    case XCB_CONFIGURE_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_configure_notify_event_t &>(event);
        const QSize size(change.width, change.height);
        return change.window == m_window && std::exchange(m_size, size) != size && (m_isStale = true);
    }
    case XCB_REPARENT_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_reparent_notify_event_t &>(event);
        return change.window == m_window && noteParent(change.parent);
    }
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == m_window && noteParent(m_root);
    default:
        return false;
    }
}

bool X11TrayWindow::noteParent(xcb_window_t parent)
{
    // A window manager may take in what a tray has put out.
    if (m_state == State::lost)
        return false;
    m_state = parent == m_root ? State::lost : State::takenIn;
    m_isStale = true;
    if (m_depth != translucentDepth) {
        // Not before: a window in another depth than its parent cannot have it.
        const uint32_t background = XCB_BACK_PIXMAP_PARENT_RELATIVE;
        xcb_change_window_attributes(m_connection, m_window, XCB_CW_BACK_PIXMAP, &background);
    }
    return true;
}

bool X11TrayWindow::show(const std::vector<QImage> &pictures)
{
    m_picture = fitting(pictures, edge().value_or(mostEdge));
    m_isStale = m_isStale || placeOf(m_picture) != m_place;
    if (!m_isStale)
        draw();
    return !m_isStale;
}

void X11TrayWindow::refresh()
{
    if (!m_isSeen || !m_isStale || m_state != State::takenIn || m_picture.isNull())
        return;
    m_isStale = false;
    m_place = placeOf(m_picture);
    xcb_clear_area(m_connection, 0, m_window, 0, 0, 0, 0);
    m_background = m_depth == translucentDepth ? QImage() : background(m_place);
    draw();
}

QRect X11TrayWindow::placeOf(const QImage &picture) const
{
    const QSize margin = (m_size - picture.size()) / 2;
    return {{margin.width(), margin.height()}, picture.size()};
}

QImage X11TrayWindow::background(const QRect &place) const
{
    const auto request =
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, static_cast<int16_t>(place.x()),
                      static_cast<int16_t>(place.y()), static_cast<uint16_t>(place.width()),
                      static_cast<uint16_t>(place.height()), ~0U);
    const X11Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, request, nullptr));
    QImage image(place.size(), formatOf(m_depth));
    // There is none while the window is beside the screen. It is told when it comes back.
    if (reply && image.sizeInBytes() == xcb_get_image_data_length(reply.get()))
        std::copy_n(xcb_get_image_data(reply.get()), image.sizeInBytes(), image.bits());
    else
        image.fill(Qt::black);
    return image;
}

void X11TrayWindow::draw()
{
    if (!m_isSeen)
        return;
    QImage image = m_background;
    if (image.isNull())
        image = m_picture.convertToFormat(formatOf(m_depth));
    else
        QPainter(&image).drawImage(0, 0, m_picture);
    if (image.isNull())
        return;
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context, static_cast<uint16_t>(image.width()),
                  static_cast<uint16_t>(image.height()), static_cast<int16_t>(m_place.x()),
                  static_cast<int16_t>(m_place.y()), 0, m_depth, static_cast<uint32_t>(image.sizeInBytes()),
                  image.constBits());
    xcb_flush(m_connection);
}

}
