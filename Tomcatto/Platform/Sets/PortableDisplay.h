#pragma once

#include "Platform/Posix/DisplayProbe.h"

namespace tomcatto {

/// Whether the toolkit would get to a display. One of its platforms that needs no server is chosen by name.
[[nodiscard]] inline bool opensPortableDisplay()
{
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM", QStringLiteral("xcb"));
    const bool needsServer = platform.contains(QLatin1String("xcb")) || platform.contains(QLatin1String("wayland"));
    return !needsServer || DisplayProbe().isReachable();
}

}
