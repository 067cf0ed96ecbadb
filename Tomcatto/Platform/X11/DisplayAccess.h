#pragma once

#include <QtCore/QString>

struct xcb_connection_t;

namespace tomcatto {

/// Finds out whether the toolkit would get to a display; where it does not, it aborts the process. Made before the
/// toolkit's application and kept until that has a connection of its own: an X server that loses its only client starts
/// anew and lets nobody in meanwhile.
class DisplayAccess final
{
public:
    /// @param platforms the toolkit's platforms by name, parted by semicolons, as its variable has them; empty where
    /// the toolkit chooses.
    explicit DisplayAccess(QString platforms = qEnvironmentVariable("QT_QPA_PLATFORM"));
    DisplayAccess(const DisplayAccess &) = delete;
    DisplayAccess &operator=(const DisplayAccess &) = delete;
    ~DisplayAccess();

    /// Whether one of the platforms can be used: there is a server that lets this user in, or it needs none.
    [[nodiscard]] bool isGranted() const noexcept { return m_isGranted; }

private:
    [[nodiscard]] bool opens(const QString &platform);
    [[nodiscard]] bool opensX11();

    xcb_connection_t *m_connection = nullptr;
    bool m_isGranted = false;
};

}
