#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/Qt/WindowSystem.h"

#include <memory>

namespace tomcatto {

/// What a platform gives the process with the views. Needs the toolkit's application object.
struct ViewSet
{
    /// Owns everything below, which lives no longer than the application object.
    std::shared_ptr<const void> adapters;
    const WindowSystem &windowSystem;
    ActivationPolicyPort &taskbar;
    /// Whether a graphics processor is certain to draw what OpenGL is asked for. A wrong guess ends in a software
    /// OpenGL, which draws everything twice as slowly and takes more than twice the memory (measured for the panel:
    /// 115 MB against 43 MB); the other mistake costs little, since views are flat and mostly still.
    bool hasGraphicsProcessor = false;
};

/// Prepares the process. Called first of all in `main`.
void prepareForViews();
/// Makes the one that this build is for.
[[nodiscard]] ViewSet makeViewSet();

}
