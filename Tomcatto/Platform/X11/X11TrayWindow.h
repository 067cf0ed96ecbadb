#pragma once

#include "Platform/X11/X11Display.h"

#include <optional>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <vector>

namespace tomcatto {

/// An icon's window in a tray that takes in windows, from the request to take it in until its end. It draws what it
/// was given as the tray's events ask for it. All sizes and places are in device pixels. Main thread only.
class X11TrayWindow final
{
public:
    /// Makes the window and asks the tray for a place. Waits for the server.
    /// @param display the server over the connection that gets the window's events
    /// @param tray the window that speaks for the tray
    X11TrayWindow(const X11Display &display, xcb_window_t tray);
    X11TrayWindow(const X11TrayWindow &) = delete;
    X11TrayWindow &operator=(const X11TrayWindow &) = delete;
    ~X11TrayWindow();

    [[nodiscard]] xcb_window_t id() const noexcept { return m_window; }
    /// The smaller edge that the tray has given it; nothing while it is not in the tray.
    [[nodiscard]] std::optional<int> edge() const;
    [[nodiscard]] QSize size() const noexcept { return m_size; }
    /// Whether the tray has put it out, or is gone.
    [[nodiscard]] bool isLost() const noexcept { return m_state == State::lost; }

    /// Takes an event of the connection, whichever window it is about.
    /// @return whether something is to be drawn or asked anew
    bool note(const xcb_generic_event_t &event);
    /// Shows the one of some square pictures that fits best. It does not wait for the server.
    /// @return false where `refresh` has to follow, because the picture has another place or the tray has cleared it
    [[nodiscard]] bool show(const std::vector<QImage> &pictures);
    /// Draws anew what the tray has cleared. Waits for the server where the tray knows no translucency.
    void refresh();

private:
    enum class State { asked, takenIn, lost };

    void make(const X11Display &display, xcb_visualid_t visual);
    void describe(const X11Display &display);
    void askForPlace(const X11Display &display, xcb_window_t tray) const;
    bool noteParent(xcb_window_t parent);
    [[nodiscard]] QRect placeOf(const QImage &picture) const;
    [[nodiscard]] QImage background(const QRect &place) const;
    void draw();

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_gcontext_t m_context = 0;
    xcb_colormap_t m_colours = 0;
    uint8_t m_depth = 0;
    State m_state = State::asked;
    QSize m_size;
    QImage m_picture;
    /// Where the picture is, and what the tray shows there behind it; null where the tray puts the two together.
    QRect m_place;
    QImage m_background;
    /// Whether the server shows it, and whether what is behind it may have changed.
    bool m_isSeen = false;
    bool m_isStale = false;
};

}
