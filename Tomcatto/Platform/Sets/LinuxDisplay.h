#pragma once

#include "Platform/Ports/Finding.h"
#include "Platform/X11/X11Access.h"

#include <QtCore/QString>

namespace tomcatto {

/// Whether the toolkit, as the environment sets it up, would get to a display.
class LinuxDisplay final
{
public:
    [[nodiscard]] bool opens();
    /// Looks at the display and its tray.
    [[nodiscard]] static Findings findings();
    /// To be called once the toolkit has a connection of its own.
    void letGo();

private:
    [[nodiscard]] bool opens(const QString &platform);

    std::optional<X11Access> m_access;
    bool m_sharesNoMemory = false;
};

}
