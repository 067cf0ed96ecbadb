#include "Platform/Wayland/WaylandFullScreen.h"

#include "Foundation/ApplicationIdentity.h"

#include <algorithm>
#include <span>
#include <wlr-foreign-toplevel-management-unstable-v1-client-header.h>

namespace tomcatto {

namespace {

/// The first version that tells of full screen.
constexpr uint32_t neededVersion = 2;

}

void WaylandFullScreen::begin()
{
    m_watch = std::make_unique<WaylandWatch>(WaylandWatch::Handlers{
        [this](std::string_view interface, uint32_t name, uint32_t version) { take(interface, name, version); },
        [this] { look(); }, [this] { tell(Fact::untold); }});
}

void WaylandFullScreen::end()
{
    m_front = nullptr;
    m_windows.clear();
    m_manager.reset();
    m_watch.reset();
}

void WaylandFullScreen::take(std::string_view interface, uint32_t name, uint32_t version)
{
    if (interface != zwlr_foreign_toplevel_manager_v1_interface.name || version < neededVersion || m_manager)
        return;
    static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
        [](void *self, zwlr_foreign_toplevel_manager_v1 *, zwlr_foreign_toplevel_handle_v1 *handle) {
            static_cast<WaylandFullScreen *>(self)->add(handle);
        },
        [](void *, zwlr_foreign_toplevel_manager_v1 *) {}};
    m_manager = m_watch->bind<zwlr_foreign_toplevel_manager_v1>(name, zwlr_foreign_toplevel_manager_v1_interface,
                                                                neededVersion);
    zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &listener, this);
}

void WaylandFullScreen::add(zwlr_foreign_toplevel_handle_v1 *handle)
{
    using Handle = zwlr_foreign_toplevel_handle_v1;
    static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
        [](void *, Handle *, const char *) {},
        [](void *window, Handle *, const char *program) {
            static_cast<Window *>(window)->isOwn = applicationIdentifier == QLatin1String(program);
        },
        [](void *, Handle *, wl_output *) {},
        [](void *, Handle *, wl_output *) {},
        [](void *window, Handle *, wl_array *states) { noteStates(*static_cast<Window *>(window), *states); },
        [](void *, Handle *) {},
        [](void *window, Handle *) { static_cast<Window *>(window)->source.remove(*static_cast<Window *>(window)); }};
    m_windows.push_back(std::make_unique<Window>(*this, WaylandObject<Handle>(handle)));
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, m_windows.back().get());
}

void WaylandFullScreen::noteStates(Window &window, const wl_array &states)
{
    const std::span all(static_cast<const uint32_t *>(states.data), states.size / sizeof(uint32_t));
    const auto has = [&all](uint32_t state) { return std::ranges::find(all, state) != all.end(); };
    window.isActive = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
    window.isFullScreen =
        has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN) && !has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
}

void WaylandFullScreen::remove(Window &window)
{
    if (m_front == &window)
        m_front = nullptr;
    zwlr_foreign_toplevel_handle_v1_destroy(window.handle.release());
    std::erase_if(m_windows, [&window](const auto &each) { return each.get() == &window; });
}

void WaylandFullScreen::look()
{
    if (!m_manager)
        return tell(Fact::untold);
    const auto active = std::ranges::find_if(m_windows, [](const auto &window) { return window->isActive; });
    if (active == m_windows.end())
        m_front = nullptr;
    else if (!(*active)->isOwn)
        m_front = active->get();
    tell(m_front != nullptr && m_front->isFullScreen ? Fact::yes : Fact::no);
}

}
