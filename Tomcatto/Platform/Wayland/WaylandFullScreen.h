#pragma once

#include "Platform/Ports/SharedFactSource.h"
#include "Platform/Wayland/WaylandWatch.h"

struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace tomcatto {

/// Whether the active window is a full-screen one of another program, where a Wayland compositor tells of windows that
/// are not the application's own. While a window of this application is active, the one before it counts: a look at
/// the panel ends no film. Main thread only.
class WaylandFullScreen final : public SharedFactSource
{
private:
    struct Window
    {
        WaylandFullScreen &source;
        WaylandObject<zwlr_foreign_toplevel_handle_v1> handle;
        bool isOwn = false;
        bool isActive = false;
        bool isFullScreen = false;
    };

    void begin() override;
    void end() override;
    void take(std::string_view interface, uint32_t name, uint32_t version);
    void add(zwlr_foreign_toplevel_handle_v1 *handle);
    static void noteStates(Window &window, const wl_array &states);
    void remove(Window &window);
    void look();

    std::unique_ptr<WaylandWatch> m_watch;
    WaylandObject<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<std::unique_ptr<Window>> m_windows;
    /// The last active window that is not the application's own.
    const Window *m_front = nullptr;
};

}
