#include "Platform/Qt/AbsentActivationPolicy.h"
#include "Platform/Qt/ToolkitWindowSystem.h"
#include "Platform/Sets/ViewSet.h"

namespace tomcatto {

namespace {

struct Adapters
{
    ToolkitWindowSystem windowSystem;
    AbsentActivationPolicy taskbar;
};

}

void prepareForViews() {}

ViewSet makeViewSet()
{
    const auto adapters = std::make_shared<Adapters>();
    return {adapters, adapters->windowSystem, adapters->taskbar};
}

}
