#pragma once

#include <functional>
#include <QtCore/QByteArray>

namespace tomcatto {

/// Finds out whether a display server answers, without the libraries of a desktop: it only opens the server's socket. A
/// server that refuses later, for want of authority, still counts as reachable.
class DisplayProbe final
{
public:
    /// @param variable reads one of the variables that name the display.
    explicit DisplayProbe(std::function<QByteArray(const char *name)> variable = qgetenv);

    /// Whether a display is named and its socket can be opened; takes at most half a second, for displays of other
    /// machines.
    [[nodiscard]] bool isReachable() const;
    /// The same for a Wayland compositor alone, which is always on this machine.
    [[nodiscard]] bool isWaylandReachable() const;
    /// The same for an X server alone.
    [[nodiscard]] bool isX11Reachable() const;

private:
    std::function<QByteArray(const char *name)> m_variable;
};

}
