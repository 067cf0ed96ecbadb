#include "Platform/Freedesktop/SilentBuses.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Linux/RenderDevice.h"
#include "Platform/Sets/ViewSet.h"
#include "Platform/X11/X11TaskbarPresence.h"

namespace tomcatto {

namespace {

/// Whether views may be drawn by a graphics processor. X servers for remote or virtual screens do not share it.
bool hasGraphicsProcessor()
{
    if (qEnvironmentVariableIsSet("LIBGL_ALWAYS_SOFTWARE") || !hasRenderDevice())
        return false;
    const X11Display display;
    return display.isValid() ? display.hasExtension("DRI3")
                             : QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

struct Adapters
{
    X11WindowSystem windowSystem;
    X11TaskbarPresence taskbar;
};

}

void prepareForViews()
{
    useOneAllocatorArena();
    avoidSilentBuses();
}

ViewSet makeViewSet()
{
    const auto adapters = std::make_shared<Adapters>();
    return {adapters, adapters->windowSystem, adapters->taskbar, hasGraphicsProcessor()};
}

}
