#pragma once

#include <functional>
#include <memory>
#include <QtCore/QSocketNotifier>
#include <string_view>
#include <wayland-client.h>

namespace tomcatto {

/// Lets go of an object of a connection here, not at the compositor, which does so at the end of the connection.
struct WaylandFree
{
    template<typename T>
    void operator()(T *object) const
    {
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(object));
    }
};
/// An object of a connection; it must not outlive that.
template<typename T>
using WaylandObject = std::unique_ptr<T, WaylandFree>;

/// A connection of its own to the Wayland compositor of the environment, whose events the main loop hands on. It never
/// waits for the compositor. Main thread only.
class WaylandWatch final
{
public:
    /// What is told of the connection, in turns of the main loop.
    struct Handlers
    {
        /// The compositor has something, which `bind` gets.
        std::function<void(std::string_view interface, uint32_t name, uint32_t version)> onOffered;
        /// All that came at once has been handed on; the first time, all that the compositor has was told of.
        std::function<void()> onRead;
        /// The compositor is not there, or not any more.
        std::function<void()> onLost;
    };

    explicit WaylandWatch(Handlers handlers);
    WaylandWatch(const WaylandWatch &) = delete;
    WaylandWatch &operator=(const WaylandWatch &) = delete;
    ~WaylandWatch();

    /// @param interface that of `T`
    template<typename T>
    [[nodiscard]] WaylandObject<T> bind(uint32_t name, const wl_interface &interface, uint32_t version) const
    {
        return WaylandObject<T>(static_cast<T *>(wl_registry_bind(m_registry.get(), name, &interface, version)));
    }

private:
    void greet();
    void read();

    Handlers m_handlers;
    wl_display *m_display;
    WaylandObject<wl_registry> m_registry;
    /// There until the compositor has told of all that it has.
    WaylandObject<wl_callback> m_greeting;
    QSocketNotifier m_notifier{QSocketNotifier::Read};
};

}
