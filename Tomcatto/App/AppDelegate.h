#pragma once

#include "App/ApplicationSurfaces.h"
#include "Composition/AppDependencies.h"

namespace tomcatto {

/// Runs the application's start and end, in their orders, around the services. What is seen of the application is
/// injected, so that the terminal and the desktop start and end alike. Main thread only.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    /// How the application was started.
    struct LaunchConditions
    {
        /// Started by the system at login: the panel does not open by itself.
        bool isBackground = false;
        /// Driven by a user-interface test: the panel does not open by itself either.
        bool isUiTest = false;
    };

    explicit AppDelegate(AppDependencies &dependencies, QObject *parent = nullptr);

    /// Decides whether the panel opens by itself: on the first start after onboarding, unless automated.
    void applicationWillFinishLaunching(const LaunchConditions &conditions);
    /// The start sequence, once.
    void applicationDidFinishLaunching(ApplicationSurfaces &surfaces);
    /// Closing the last window never ends the application.
    [[nodiscard]] static constexpr bool applicationShouldTerminateAfterLastWindowClosed() noexcept { return false; }
    /// Everything is on disk when it returns, the running phase as one that may be cut off: the machine is about to
    /// sleep, or the session asks whether it may end. Ends nothing.
    void applicationMayTerminate();
    /// The end sequence: the running phase is recorded, everything is on disk when it returns. May be called again.
    void applicationWillTerminate();

private:
    void connectLanguage();
    void attachShortcuts();
    void followSleep();
    void installAppUI(ApplicationSurfaces &surfaces);

    AppDependencies &m_dependencies;
    bool m_appUIInstalled = false;
    bool m_pendingPopoverReveal = false;
};

}
