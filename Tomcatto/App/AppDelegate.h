#pragma once

#include "Composition/AppDependencies.h"
#include "Composition/TimerCommands.h"

namespace tomcatto {

/// Runs the application's start and end, in their orders, around the services. What is seen of the application is
/// injected, so that the terminal and the desktop start and end alike. Main thread only.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    /// @param installSurfaces creates what is seen; called once, while starting.
    AppDelegate(AppDependencies &dependencies, std::function<void()> installSurfaces, QObject *parent = nullptr);

    /// The start sequence, once.
    void applicationDidFinishLaunching();
    /// The end sequence: the running phase is recorded, everything is on disk when it returns. May be called again.
    void applicationWillTerminate();

private:
    void connectLanguage();
    void installAppUI();

    AppDependencies &m_dependencies;
    std::function<void()> m_installSurfaces;
    bool m_appUIInstalled = false;
};

}
