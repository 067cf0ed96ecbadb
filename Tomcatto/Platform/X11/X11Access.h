#pragma once

struct xcb_connection_t;

namespace tomcatto {

/// A connection to the X server of the environment. Made before the toolkit's application and kept until that has a
/// connection of its own: a server that loses its only client starts anew and lets nobody in meanwhile.
class X11Access final
{
public:
    X11Access();
    X11Access(const X11Access &) = delete;
    X11Access &operator=(const X11Access &) = delete;
    ~X11Access();

    /// Whether the server is there and lets this user in, which only a connection shows.
    [[nodiscard]] bool isGranted() const;
    /// The connection; of no use where access is not granted.
    [[nodiscard]] xcb_connection_t *connection() const noexcept { return m_connection; }

private:
    xcb_connection_t *m_connection;
};

}
