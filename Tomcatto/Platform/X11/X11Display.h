#pragma once

#include <cstdlib>
#include <memory>
#include <QtCore/QByteArray>
#include <xcb/xcb.h>

namespace tomcatto {

/// Frees what the protocol's library has allocated.
struct X11Free
{
    void operator()(void *reply) const { std::free(reply); } // NOLINT(cppcoreguidelines-no-malloc)
};
template<typename T>
using X11Reply = std::unique_ptr<T, X11Free>;

/// The X server that the application shows on, over the toolkit's own connection. A value; main thread only. It asks
/// the server and waits for its answer only where a method says so.
class X11Display final
{
public:
    /// The display in use; `isValid` is false where it is not an X server.
    X11Display();
    /// The display of another connection, which is open and stays so.
    explicit X11Display(xcb_connection_t *connection);

    [[nodiscard]] bool isValid() const noexcept { return m_connection != nullptr; }
    [[nodiscard]] xcb_connection_t *connection() const noexcept { return m_connection; }
    [[nodiscard]] xcb_window_t root() const noexcept { return m_root; }
    /// The atom of a name. Waits for the server.
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const;
    /// Whether the server has an extension. Waits for the server.
    [[nodiscard]] bool hasExtension(const QByteArray &name) const;
    /// The window that owns a selection, 0 without one. Waits for the server.
    [[nodiscard]] xcb_window_t selectionOwner(xcb_atom_t selection) const;
    /// Whether windows may be translucent because a compositor runs. Waits for the server.
    [[nodiscard]] bool isComposited() const;

private:
    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = 0;
};

}
