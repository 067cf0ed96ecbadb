#pragma once

#include "Platform/Ports/SharedFactSource.h"
#include "Platform/X11/X11Watch.h"

namespace tomcatto {

/// Whether the active window of an X server is a full-screen one of another program, as its window manager tells.
/// While a window of this application is active, the one that was seen active before it counts: a look at the panel
/// ends no film. Main thread only.
class X11FullScreen final : public SharedFactSource
{
private:
    void begin() override;
    void end() override;
    void note(const xcb_generic_event_t &event);
    void look();
    [[nodiscard]] Fact presentFact();
    [[nodiscard]] xcb_window_t managersWindow() const;
    [[nodiscard]] bool isFullScreen(xcb_window_t window) const;
    /// Has the server tell these events of a window, and no others.
    void follow(xcb_window_t window, uint32_t events) const;

    struct Atoms
    {
        xcb_atom_t manager;
        xcb_atom_t active;
        xcb_atom_t state;
        xcb_atom_t fullScreen;
        xcb_atom_t hidden;
    };

    std::unique_ptr<X11Watch> m_watch;
    Atoms m_atoms{};
    /// The last active window that is not the application's own.
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

}
