#pragma once

#include "Platform/X11/X11Watch.h"

#include <QtCore/QRect>

namespace tomcatto {

/// A tray that takes in one window, in a visual of its choice and before a colour of its own; its icon is `icon` of the
/// screen.
class WindowTray final
{
public:
    static constexpr QRect icon{20, 30, 60, 41};

    explicit WindowTray(bool isTranslucent)
    {
        const auto &screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        const xcb_visualid_t visual = isTranslucent ? translucentVisual(screen) : screen.root_visual;
        const xcb_colormap_t colours = xcb_generate_id(m_connection);
        xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, colours, screen.root, visual);
        const uint32_t values[] = {isTranslucent ? 0U : 0x0000FFU, 0, 1, colours};
        xcb_create_window(m_connection, isTranslucent ? 32 : screen.root_depth, m_window, screen.root, 10, 10, 100, 80,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP, values);
        if (isTranslucent)
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window,
                                m_watch.display().atom("_NET_SYSTEM_TRAY_VISUAL"), XCB_ATOM_VISUALID, 32, 1, &visual);
        xcb_map_window(m_connection, m_window);
        xcb_set_selection_owner(m_connection, m_window, m_selection, XCB_CURRENT_TIME);
        announce();
    }

    void announce()
    {
        xcb_client_message_event_t event{
            XCB_CLIENT_MESSAGE, 32, 0, m_watch.display().root(), m_watch.display().atom("MANAGER"), {}};
        event.data.data32[1] = m_selection;
        event.data.data32[2] = m_window;
        xcb_send_event(m_connection, 0, event.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&event));
        m_watch.read();
    }
    void putOut()
    {
        xcb_reparent_window(m_connection, m_taken, m_watch.display().root(), 0, 0);
        xcb_flush(m_connection);
    }

private:
    static xcb_visualid_t translucentVisual(const xcb_screen_t &screen)
    {
        auto depth = xcb_screen_allowed_depths_iterator(&screen);
        while (depth.data->depth != 32)
            xcb_depth_next(&depth);
        return xcb_depth_visuals(depth.data)->visual_id;
    }
    void take(const xcb_generic_event_t &event)
    {
        if ((event.response_type & 0x7F) != XCB_CLIENT_MESSAGE)
            return;
        m_taken = reinterpret_cast<const xcb_client_message_event_t &>(event).data.data32[2];
        const uint32_t size[] = {icon.width(), icon.height()};
        xcb_configure_window(m_connection, m_taken, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
        xcb_reparent_window(m_connection, m_taken, m_window, icon.x() - 10, icon.y() - 10);
        xcb_map_window(m_connection, m_taken);
        xcb_flush(m_connection);
    }

    X11Watch m_watch{[this](const xcb_generic_event_t &event) { take(event); }, [] {}};
    xcb_connection_t *m_connection = m_watch.display().connection();
    xcb_window_t m_window = xcb_generate_id(m_connection);
    xcb_window_t m_taken = 0;
    xcb_atom_t m_selection = m_watch.display().atom("_NET_SYSTEM_TRAY_S0");
};

}
