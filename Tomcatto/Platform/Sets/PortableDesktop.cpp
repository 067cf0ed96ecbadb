#include "Platform/Dialogs/ProcessAlert.h"
#include "Platform/Dialogs/ProcessFilePanels.h"
#include "Platform/Ports/AbsentSurroundings.h"
#include "Platform/Ports/DesktopPlatform.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Qt/AbsentActivationPolicy.h"
#include "Platform/Qt/DesktopScreens.h"
#include "Platform/Qt/DisplayLoss.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/StatusItemSwitch.h"
#include "Platform/Qt/ToolkitTheme.h"
#include "Platform/Qt/ToolkitTray.h"
#include "Platform/Qt/ToolkitWindowSystem.h"
#include "Platform/Qt/TrayNotificationCenter.h"
#include "Platform/Sets/PortableDisplay.h"
#include "Platform/Views/ProcessViewHost.h"
#include "Platform/Views/ViewProcessInput.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QSystemTrayIcon>

namespace tomcatto {

namespace {

/// The toolkit opens no page of a system's settings.
class AbsentSystemSettings final : public SystemSettings
{
public:
    bool openLoginItems() override { return false; }
    bool openNotifications() override { return false; }
};

/// The tray's messages, which have no buttons. There is nobody to ask for the permission.
class TrayMessageProbe final : public NotificationProbe
{
public:
    void query(std::function<void(NotificationProbeResult)> onResult) override
    {
        QTimer::singleShot(0, &m_context, [onResult = std::move(onResult)] {
            const bool showsAny = QSystemTrayIcon::isSystemTrayAvailable() && QSystemTrayIcon::supportsMessages();
            onResult({showsAny ? NotificationPermission::authorised : NotificationPermission::unavailable, false});
        });
    }
    void request(std::function<void(NotificationProbeResult)> onResult) override { query(std::move(onResult)); }

private:
    QObject m_context;
};

/// The toolkit gets the keys of its own windows alone.
class AbsentHotKeys final : public HotKeys
{
public:
    [[nodiscard]] HotKeySupport support() const override { return HotKeySupport::none; }
    [[nodiscard]] Cancellable onSupportChanged(std::function<void()> /*handler*/) override { return {}; }
    void setDelegate(HotKeysDelegate * /*delegate*/) override {}
    [[nodiscard]] std::expected<Cancellable, int> registerHotKey(const HotKeyRequest & /*request*/) override
    {
        return Cancellable();
    }
};

QString viewsProgram()
{
    return companionProgram(QStringLiteral("tomcatto-views"));
}

QString dialogsProgram()
{
    return companionProgram(QStringLiteral("tomcatto-dialogs"));
}

struct ServiceAdapters
{
    ToolkitWindowSystem windowSystem;
    AbsentSystemSettings systemSettings;
    TrayMessageProbe notificationProbe;
    QtMainRunLoop runLoop;
    DesktopAppearance appearance;
    DialogSurroundings dialogs{dialogsProgram(), runLoop, appearance};
    ProcessAlert alert{dialogs};
    TrayNotificationCenter notificationCenter{runLoop};
    AbsentHotKeys hotKeys;
    AbsentFact fact;
    AbsentIdle idle;

    [[nodiscard]] Surroundings surroundings() { return {fact, fact, fact, idle}; }
};

std::vector<std::unique_ptr<TrayIcon>> makeTrays(TrayNotificationCenter &notificationCenter)
{
    auto tray = std::make_unique<ToolkitTray>();
    notificationCenter.setTray(*tray);
    std::vector<std::unique_ptr<TrayIcon>> trays;
    trays.push_back(std::move(tray));
    return trays;
}

struct SurfaceAdapters
{
    SurfaceAdapters(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts, ServiceAdapters &services)
        : windowSystem(services.windowSystem)
        , appearance(services.appearance)
        , screens(runLoop)
        , views(viewsProgram(), runLoop)
        , viewHost(views, runLoop, appearance, texts)
        , statusItem(makeTrays(services.notificationCenter), appearance, defaults, windowSystem)
        , savePanel(services.dialogs)
        , openPanel(services.dialogs)
    {
        followPresses(views, clickMonitor);
    }

    const WindowSystem &windowSystem;
    DesktopAppearance &appearance;
    ToolkitTheme toolkitTheme{appearance};
    ApplicationClickMonitor clickMonitor;
    DesktopScreens screens;
    ViewProcess views;
    ProcessViewHost viewHost;
    ViewProcessKeys keyMonitor{views};
    AbsentActivationPolicy ownTaskbar;
    ViewProcessTaskbar taskbar{views, ownTaskbar};
    StatusItemSwitch statusItem;
    ProcessSavePanel savePanel;
    ProcessOpenPanel openPanel;
};

class PortableDesktop final : public DesktopPlatform
{
public:
    [[nodiscard]] bool opensDisplay() override { return opensPortableDisplay(); }
    [[nodiscard]] Findings findings() override
    {
        return {{QStringLiteral("display"), Finding::Mark::there, QStringLiteral("it answers"), {}},
                ProcessViewHost::find({viewsProgram(), dialogsProgram()})};
    }
    [[nodiscard]] std::unique_ptr<QGuiApplication> makeApplication(int &argc, char **argv) override
    {
        return std::make_unique<QApplication>(argc, argv);
    }
    [[nodiscard]] DesktopServices services() override
    {
        const auto adapters = std::make_shared<ServiceAdapters>();
        m_services = adapters;
        return {adapters,          adapters->alert,          adapters->systemSettings,     adapters->notificationProbe,
                adapters->hotKeys, adapters->surroundings(), &adapters->notificationCenter};
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
    /// Theirs is the application, which uses them.
    std::weak_ptr<ServiceAdapters> m_services;
};

}

std::unique_ptr<DesktopPlatform> makeDesktopPlatform()
{
    return std::make_unique<PortableDesktop>();
}

}
