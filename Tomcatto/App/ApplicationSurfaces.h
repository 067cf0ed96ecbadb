#pragma once

#include "CommandLine/Invocation.h"
#include "Platform/Ports/ApplicationPlatform.h"
#include "Platform/Ports/DesktopPlatform.h"

namespace tomcatto {

/// What is seen of the application. The delegate calls these in the order of the start; a front end does nothing if it
/// has nothing of the kind. Main thread only.
class ApplicationSurfaces
{
public:
    virtual ~ApplicationSurfaces() = default;

    /// Shows as an accessory, in the theme that the settings ask for, now and from now on.
    virtual void prepare() = 0;
    /// Makes everything that is seen; called once.
    virtual void install() = 0;
    /// Opens the panel without being asked.
    virtual void revealPopover() = 0;
    /// Shows onboarding unless it was completed.
    virtual void showOnboardingIfNeeded() = 0;
};

class AppDelegate;
class AppDependencies;
class ApplicationControl;

/// What surfaces are made of. Everything outlives them.
struct SurfaceParts
{
    const Invocation &invocation;
    const ApplicationPorts &ports;
    const std::function<void(StandardErrorCopy)> &copyLogToStandardError;
    AppDependencies &dependencies;
    AppDelegate &delegate;
    ApplicationControl &control;
};

/// A way in which the application shows itself.
struct FrontEnd
{
    /// The answer to a second start of the application.
    QString runningMessage;
    /// Makes the surfaces, with their commands in the application's table.
    std::function<std::unique_ptr<ApplicationSurfaces>(const SurfaceParts &)> makeSurfaces;
    /// What it gives the services; empty where there is no desktop.
    std::function<DesktopServices()> makeServices;
};

}
