#include "Platform/X11/DisplayAccess.h"

#include "Platform/Freedesktop/DisplayProbe.h"

#include <algorithm>
#include <QtCore/QStringList>
#include <xcb/xcb.h>

namespace tomcatto {

DisplayAccess::DisplayAccess(QString platforms)
{
    if (platforms.isEmpty())
        platforms = QStringLiteral("wayland;xcb");
    m_isGranted = std::ranges::any_of(platforms.split(u';'), [this](const QString &name) { return opens(name); });
}

DisplayAccess::~DisplayAccess()
{
    if (m_connection != nullptr)
        xcb_disconnect(m_connection);
}

bool DisplayAccess::opens(const QString &platform)
{
    if (platform.startsWith(QLatin1String("wayland")))
        return DisplayProbe().isWaylandReachable();
    return !platform.startsWith(QLatin1String("xcb")) || opensX11();
}

bool DisplayAccess::opensX11()
{
    // A server may be there and refuse this user, which only a connection shows.
    if (m_connection == nullptr)
        m_connection = xcb_connect(nullptr, nullptr);
    return xcb_connection_has_error(m_connection) == 0;
}

}
