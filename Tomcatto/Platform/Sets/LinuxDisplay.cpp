#include "Platform/Sets/LinuxDisplay.h"

#include "Platform/Freedesktop/SilentBuses.h"
#include "Platform/Posix/DisplayProbe.h"

#include <algorithm>
#include <QtCore/QStringList>

namespace tomcatto {

bool LinuxDisplay::opens()
{
    // The toolkit asks them when it opens the display.
    avoidSilentBuses();
    QString platforms = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (platforms.isEmpty())
        platforms = QStringLiteral("wayland;xcb");
    return std::ranges::any_of(platforms.split(u';'), [this](const QString &name) { return opens(name); });
}

bool LinuxDisplay::opens(const QString &platform)
{
    if (platform.startsWith(QLatin1String("wayland")))
        return DisplayProbe().isWaylandReachable();
    if (!platform.startsWith(QLatin1String("xcb")))
        return true;
    m_access.emplace();
    return m_access->isGranted();
}

}
