#include "Platform/Posix/CheckingDayTimer.h"
#include "Platform/Posix/StandardDescriptors.h"
#include "Platform/Posix/SteadyClock.h"
#include "Platform/Qt/ToolkitTheme.h"
#include "Platform/Qt/ToolkitWidgetDesktop.h"
#include "Platform/Qt/ToolkitWindowSystem.h"
#include "Platform/Sets/PortableDisplay.h"
#include "Platform/Sets/WidgetAdapters.h"

namespace tomcatto {

namespace {

struct Adapters
{
    WidgetAdapters shared{{}, nullptr, [] { return std::make_unique<CheckingDayTimer>(); }};
    SteadyClock monotonicClock;
    ToolkitWindowSystem windowSystem;
    DesktopAppearance appearance;
    ToolkitTheme toolkitTheme{appearance};
    ToolkitWidgetDesktop desktop{windowSystem, appearance};
};

class PortableWidget final : public WidgetPlatform
{
public:
    [[nodiscard]] bool opensDisplay() override { return opensPortableDisplay(); }
    [[nodiscard]] WidgetPorts ports() override
    {
        const auto adapters = std::make_shared<Adapters>();
        return adapters->shared.ports(adapters, adapters->monotonicClock, adapters->desktop);
    }
};

}

std::unique_ptr<WidgetPlatform> makeWidgetPlatform()
{
    openMissingStandardDescriptors();
    return std::make_unique<PortableWidget>();
}

}
