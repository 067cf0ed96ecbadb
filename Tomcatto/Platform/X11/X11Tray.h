#pragma once

#include "Platform/Qt/DesktopAppearance.h"
#include "Platform/Qt/HintWindow.h"
#include "Platform/Qt/TrayIcon.h"
#include "Platform/X11/X11TrayWindow.h"
#include "Platform/X11/X11Watch.h"

namespace tomcatto {

/// The icon in a tray of an X server that takes in windows, over a connection of its own: over the toolkit's each event
/// would wake up two threads. Where the toolkit shows elsewhere there is none. Main thread only.
class X11Tray final : public TrayIcon
{
    Q_OBJECT

public:
    /// @param appearance tells whether the hint is dark; outlives this.
    explicit X11Tray(const DesktopAppearance &appearance);
    ~X11Tray() override;

    [[nodiscard]] bool isDecided() const override { return true; }
    /// Not by a tray that has put the icon out, until a tray announces itself again.
    [[nodiscard]] bool isHosted() const override { return m_tray != XCB_WINDOW_NONE && !m_isPutOut; }
    /// The smaller edge that the tray gave the icon; a usual one until it has.
    [[nodiscard]] std::vector<int> iconSizes() const override { return {m_edge}; }
    /// Waits for the server.
    [[nodiscard]] std::optional<QRect> geometry() const override;

    void setShown(bool isShown) override;
    void show(const StatusItemPresentation &presentation) override;

private:
    void note(const xcb_generic_event_t &event);
    void onceToolkitHas(std::function<void()> action);
    void press(const xcb_button_press_event_t &event);
    void pointAt(QPoint place);
    void settle();
    void look();
    void update();
    void tell();

    const DesktopAppearance &m_appearance;
    HintWindow m_hint;
    std::unique_ptr<X11Watch> m_watch;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_manager = XCB_ATOM_NONE;
    /// The window that speaks for the tray.
    xcb_window_t m_tray = XCB_WINDOW_NONE;
    std::optional<X11TrayWindow> m_window;
    /// Runs out when all events that have come are read.
    QTimer m_settling;
    std::vector<QImage> m_pictures;
    /// The button that a second press would make a double click, and the server's milliseconds of the first.
    xcb_button_t m_button = 0;
    xcb_timestamp_t m_pressed = 0;
    std::pair<bool, int> m_told;
    int m_edge = 24;
    bool m_isShown = false;
    bool m_isPutOut = false;
    bool m_mustLook = false;
};

}
