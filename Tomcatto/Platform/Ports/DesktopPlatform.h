#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/Ports/DesktopServices.h"
#include "Platform/Ports/Finding.h"
#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/KeyMonitor.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/OpenPanel.h"
#include "Platform/Ports/SavePanel.h"
#include "Platform/Ports/Screens.h"
#include "Platform/Ports/StatusItem.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Ports/ViewHost.h"
#include "Platform/Ports/WindowTheme.h"

#include <memory>

class QGuiApplication;

namespace tomcatto {

/// What a desktop gives the surfaces.
struct DesktopPorts
{
    /// Owns everything below, which lives no longer than the application object.
    std::shared_ptr<const void> adapters;
    WindowTheme &theme;
    ActivationPolicyPort &activationPolicy;
    GlobalClickMonitor &clickMonitor;
    Screens &screens;
    KeyMonitor &keyMonitor;
    ViewHost &viewHost;
    StatusItem &statusItem;
    SavePanel &savePanel;
    OpenPanel &openPanel;
    /// Whether windows come where the application wants them, in the layer that it wants, and take the keyboard only
    /// when they ask for it.
    bool canPlaceWindows = true;
};

/// The windows of one platform, beside its `ApplicationPlatform`. Main thread only.
class DesktopPlatform
{
public:
    virtual ~DesktopPlatform() = default;

    /// Whether the toolkit would get to a display; where it does not, it aborts the process. Asked before its
    /// application object is made.
    [[nodiscard]] virtual bool opensDisplay() = 0;
    /// Looks at what windows and the icon need: display, tray, views. May hang where one of them does. Needs an
    /// application object, of the kind that opens no display.
    [[nodiscard]] virtual Findings findings() = 0;
    /// Makes the toolkit's application object, of the kind that the adapters need. The arguments outlive it.
    [[nodiscard]] virtual std::unique_ptr<QGuiApplication> makeApplication(int &argc, char **argv) = 0;
    /// Builds what services need, once. Needs the toolkit's application object, as all that follows.
    [[nodiscard]] virtual DesktopServices services() = 0;
    /// Builds what surfaces need, once, while the services have theirs.
    /// @param defaults keep what belongs to the display, such as places of windows.
    /// @param texts the `LocalizedStrings` that views take their texts from. All three outlive the ports.
    [[nodiscard]] virtual DesktopPorts ports(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts) = 0;
    /// Calls `onLost` once when the display server has gone, in the middle of whatever noticed; it must not wait for
    /// the display or run an event loop. After it the process ends with status 0: to the application its display is the
    /// user's session. One at a time.
    [[nodiscard]] virtual Cancellable onDisplayLost(std::function<void()> onLost) = 0;
};

/// Makes the one that this build is for.
[[nodiscard]] std::unique_ptr<DesktopPlatform> makeDesktopPlatform();

}
