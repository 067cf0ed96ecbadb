#include "Platform/Dialogs/ProcessAlert.h"
#include "Platform/Dialogs/ProcessFilePanels.h"
#include "Platform/Freedesktop/AppearancePortal.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Freedesktop/DesktopSystemSettings.h"
#include "Platform/Freedesktop/FreedesktopNotificationProbe.h"
#include "Platform/Freedesktop/PortalHotKeys.h"
#include "Platform/Freedesktop/StatusNotifierTray.h"
#include "Platform/Linux/CameraInUse.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Ports/AnyFactSource.h"
#include "Platform/Ports/DesktopPlatform.h"
#include "Platform/Posix/CompanionFact.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Qt/DesktopScreens.h"
#include "Platform/Qt/DisplayLoss.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/StatusItemSwitch.h"
#include "Platform/Sets/LinuxDisplay.h"
#include "Platform/Sets/LinuxSurroundings.h"
#include "Platform/Views/ProcessViewHost.h"
#include "Platform/Views/ViewProcessInput.h"
#include "Platform/X11/X11ClickMonitor.h"
#include "Platform/X11/X11HotKeys.h"
#include "Platform/X11/X11TaskbarPresence.h"
#include "Platform/X11/X11Tray.h"
#include "Platform/X11/X11WindowSystem.h"

#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

QString viewsProgram()
{
    return companionProgram(QStringLiteral("tomcatto-views"));
}

QString dialogsProgram()
{
    return companionProgram(QStringLiteral("tomcatto-dialogs"));
}

std::vector<std::unique_ptr<TrayIcon>> makeTrays(const DesktopAppearance &appearance)
{
    std::vector<std::unique_ptr<TrayIcon>> trays;
    trays.push_back(std::make_unique<StatusNotifierTray>(QDBusConnection::sessionBus()));
    trays.push_back(std::make_unique<X11Tray>(appearance));
    return trays;
}

std::unique_ptr<HotKeys> makeHotKeys(MainRunLoop &runLoop)
{
    if (X11Display().isValid())
        return std::make_unique<X11HotKeys>(runLoop);
    return std::make_unique<PortalHotKeys>(QDBusConnection::sessionBus());
}

struct ServiceAdapters
{
    X11WindowSystem windowSystem;
    DesktopSystemSettings systemSettings{DesktopSystemSettings::currentDesktops(), AutostartLoginItem::userFolder()};
    FreedesktopNotificationProbe notificationProbe{QDBusConnection::sessionBus()};
    QtMainRunLoop runLoop;
    std::unique_ptr<HotKeys> hotKeys = makeHotKeys(runLoop);
    DesktopAppearance appearance;
    AppearancePortal portal{QDBusConnection::sessionBus(), appearance};
    DialogSurroundings dialogs{dialogsProgram(), runLoop, appearance};
    ProcessAlert alert{dialogs};
    CompanionFact microphone{companionProgram(QStringLiteral("tomcatto-calls")), runLoop};
    CameraInUse camera{runLoop};
    AnyFactSource call{{microphone, camera}};
    LinuxSurroundings surroundings;
};

struct SurfaceAdapters
{
    SurfaceAdapters(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts, ServiceAdapters &services)
        : windowSystem(services.windowSystem)
        , appearance(services.appearance)
        , screens(runLoop)
        , views(viewsProgram(), runLoop)
        , viewHost(views, runLoop, appearance, texts, giveBackUnusedMemory)
        , statusItem(makeTrays(appearance), appearance, defaults, windowSystem)
        , savePanel(services.dialogs)
        , openPanel(services.dialogs)
    {
        followPresses(views, clickMonitor);
    }

    const WindowSystem &windowSystem;
    DesktopAppearance &appearance;
    X11ClickMonitor clickMonitor;
    DesktopScreens screens;
    ViewProcess views;
    ProcessViewHost viewHost;
    ViewProcessKeys keyMonitor{views};
    X11TaskbarPresence ownTaskbar;
    ViewProcessTaskbar taskbar{views, ownTaskbar};
    StatusItemSwitch statusItem;
    ProcessSavePanel savePanel;
    ProcessOpenPanel openPanel;
};

class LinuxDesktop final : public DesktopPlatform
{
public:
    [[nodiscard]] bool opensDisplay() override { return m_display.opens(); }
    [[nodiscard]] Findings findings() override
    {
        Findings findings = LinuxDisplay::findings();
        for (const Finding &finding : LinuxSurroundings::findings())
            findings.push_back(finding);
        findings.push_back(ProcessViewHost::find({viewsProgram(), dialogsProgram()}));
        return findings;
    }
    [[nodiscard]] std::unique_ptr<QGuiApplication> makeApplication(int &argc, char **argv) override
    {
        return std::make_unique<QGuiApplication>(argc, argv);
    }
    [[nodiscard]] DesktopServices services() override
    {
        m_display.letGo();
        const auto adapters = std::make_shared<ServiceAdapters>();
        m_services = adapters;
        return {adapters,
                adapters->alert,
                adapters->systemSettings,
                adapters->notificationProbe,
                *adapters->hotKeys,
                {adapters->call, adapters->surroundings.fullScreen(), adapters->surroundings.lock(),
                 adapters->surroundings.idle()}};
    }
    [[nodiscard]] DesktopPorts ports(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts) override
    {
        const auto services = m_services.lock();
        const auto adapters = std::make_shared<SurfaceAdapters>(runLoop, defaults, texts, *services);
        services->dialogs.windowBehind = [weak = std::weak_ptr(adapters)] {
            const auto surfaces = weak.lock();
            return surfaces ? surfaces->viewHost.windowBehind() : 0;
        };
        return {adapters,
                adapters->appearance,
                adapters->taskbar,
                adapters->clickMonitor,
                adapters->screens,
                adapters->keyMonitor,
                adapters->viewHost,
                adapters->statusItem,
                adapters->savePanel,
                adapters->openPanel,
                adapters->windowSystem.canPlaceWindows()};
    }
    [[nodiscard]] Cancellable onDisplayLost(std::function<void()> onLost) override
    {
        return Cancellable([loss = std::make_shared<DisplayLoss>(std::move(onLost))]() mutable { loss.reset(); });
    }

private:
    LinuxDisplay m_display;
    /// Theirs is the application, which uses them.
    std::weak_ptr<ServiceAdapters> m_services;
};

}

std::unique_ptr<DesktopPlatform> makeDesktopPlatform()
{
    return std::make_unique<LinuxDesktop>();
}

}
