#include "Platform/Freedesktop/AppearancePortal.h"
#include "Platform/Linux/BootTimeClock.h"
#include "Platform/Linux/PeerCredentials.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Linux/TimerfdDayTimer.h"
#include "Platform/Posix/StandardDescriptors.h"
#include "Platform/Qt/ToolkitTheme.h"
#include "Platform/Qt/ToolkitWidgetDesktop.h"
#include "Platform/Sets/LinuxDisplay.h"
#include "Platform/Sets/WidgetAdapters.h"
#include "Platform/X11/X11WindowSystem.h"

namespace tomcatto {

namespace {

struct Adapters
{
    WidgetAdapters shared{QByteArrayLiteral("/run/systemd/journal/socket"), isPeerTrusted,
                          [] { return std::make_unique<TimerfdDayTimer>(); }};
    BootTimeClock monotonicClock;
    X11WindowSystem windowSystem;
    DesktopAppearance appearance;
    AppearancePortal portal{QDBusConnection::sessionBus(), appearance};
    ToolkitTheme toolkitTheme{appearance};
    ToolkitWidgetDesktop desktop{windowSystem, appearance};
};

class LinuxWidget final : public WidgetPlatform
{
public:
    [[nodiscard]] bool opensDisplay() override { return m_display.opens(); }
    [[nodiscard]] WidgetPorts ports() override
    {
        m_display.letGo();
        const auto adapters = std::make_shared<Adapters>();
        return adapters->shared.ports(adapters, adapters->monotonicClock, adapters->desktop);
    }

private:
    LinuxDisplay m_display;
};

}

std::unique_ptr<WidgetPlatform> makeWidgetPlatform()
{
    openMissingStandardDescriptors();
    useOneAllocatorArena();
    return std::make_unique<LinuxWidget>();
}

}
