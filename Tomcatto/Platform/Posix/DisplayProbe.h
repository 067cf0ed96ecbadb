#pragma once

#include <QtCore/QProcessEnvironment>

namespace tomcatto {

/// Finds out whether a display server answers, without the libraries of a desktop: it only opens the server's socket. A
/// server that refuses later, for want of authority, still counts as reachable.
class DisplayProbe final
{
public:
    /// @param environment where the variables that name the display are read.
    explicit DisplayProbe(const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());

    /// Whether a display is named and its socket can be opened; takes at most half a second, for displays of other
    /// machines.
    [[nodiscard]] bool isReachable() const;
    /// The same for a Wayland compositor alone, which is always on this machine.
    [[nodiscard]] bool isWaylandReachable() const;
    /// The same for an X server alone.
    [[nodiscard]] bool isX11Reachable() const;

private:
    QProcessEnvironment m_environment;
};

}
