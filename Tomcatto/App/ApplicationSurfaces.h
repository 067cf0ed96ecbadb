#pragma once

namespace tomcatto {

/// What is seen of the application. The delegate calls these in the order of the start; a front end does nothing where
/// it has nothing of the kind. Main thread only.
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

}
