#include "Platform/Sets/LinuxDisplay.h"

#include "Platform/Freedesktop/BusFindings.h"
#include "Platform/Freedesktop/SilentBuses.h"
#include "Platform/Posix/DisplayProbe.h"
#include "Platform/X11/X11Display.h"

#include <algorithm>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

namespace tomcatto {

namespace {

using Mark = Finding::Mark;

/// Read by the toolkit when it connects. The windows here are small: their pictures go over the connection. In memory
/// that is shared with the server each would wait for the one before, which wakes two threads up.
constexpr const char *noSharedMemoryVariable = "QT_XCB_NO_MITSHM";

Finding findDisplay(const X11Access &access, bool isWayland)
{
    const QString part = QStringLiteral("display");
    const QString name = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    const QString desktop = name.isEmpty() ? QString() : QStringLiteral("; desktop ") + name;
    if (isWayland)
        return {part, Mark::there, QStringLiteral("Wayland") + desktop, {}};
    if (!access.isGranted())
        return {part, Mark::lacking, QStringLiteral("the X server lets nobody in from here, so the terminal is used"),
                QStringLiteral("Start Tomcatto as the user of that display; XAUTHORITY names the key to it")};
    const bool isComposited = X11Display(access.connection()).isComposited();
    return {part,
            Mark::there,
            (isComposited ? QStringLiteral("X11 with a compositor") : QStringLiteral("X11 without a compositor")) +
                desktop,
            {}};
}

bool hasWindowTray(const X11Access &access)
{
    const X11Display display(access.connection());
    return display.selectionOwner(display.atom("_NET_SYSTEM_TRAY_S0")) != XCB_WINDOW_NONE;
}

Finding findTray(const X11Access &access)
{
    const QString part = QStringLiteral("tray");
    if (hasTrayHost(QDBusConnection::sessionBus()))
        return {part, Mark::there, QStringLiteral("it takes icons over the session bus"), {}};
    if (access.isGranted() && hasWindowTray(access))
        return {part, Mark::there, QStringLiteral("it takes icons as windows"), {}};
    return {part, Mark::lacking, QStringLiteral("there is none, so a small window shows the time"),
            QStringLiteral("Add a tray to your panel; GNOME's comes with its extension for AppIndicators")};
}

}

Findings LinuxDisplay::findings()
{
    avoidSilentBuses();
    const X11Access access;
    return {findDisplay(access, DisplayProbe().isWaylandReachable()), findTray(access)};
}

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
    if (m_access->isGranted() && !qEnvironmentVariableIsSet(noSharedMemoryVariable))
        m_sharesNoMemory = qputenv(noSharedMemoryVariable, "1");
    return m_access->isGranted();
}

void LinuxDisplay::letGo()
{
    m_access.reset();
    // Not for programs that this one starts.
    if (std::exchange(m_sharesNoMemory, false))
        qunsetenv(noSharedMemoryVariable);
}

}
