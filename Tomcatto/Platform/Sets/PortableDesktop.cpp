#include "Platform/Ports/DesktopPlatform.h"
#include "Platform/Qt/ApplicationClickMonitor.h"
#include "Platform/Qt/ApplicationKeyMonitor.h"
#include "Platform/Qt/DesktopScreens.h"
#include "Platform/Qt/DisplayLoss.h"
#include "Platform/Qt/FileDialogSavePanel.h"
#include "Platform/Qt/MessageBoxAlert.h"
#include "Platform/Qt/PluginViewHost.h"
#include "Platform/Qt/StatusItemSwitch.h"
#include "Platform/Qt/ToolkitTheme.h"
#include "Platform/Qt/ToolkitTray.h"
#include "Platform/Qt/ToolkitTrayPresence.h"
#include "Platform/Qt/ToolkitWindowSystem.h"
#include "Platform/Sets/PortableDisplay.h"

#include <QtCore/QTimer>

namespace tomcatto {

namespace {

/// Windows are listed among the running ones as the desktop likes.
class AbsentActivationPolicy final : public ActivationPolicyPort
{
public:
    void setPolicy(ActivationPolicyKind /*kind*/) override {}
};

/// The toolkit opens no page of a system's settings.
class AbsentSystemSettings final : public SystemSettings
{
public:
    bool openLoginItems() override { return false; }
    bool openNotifications() override { return false; }
};

/// The toolkit has no notifications with buttons, and nobody to ask for the permission.
class AbsentNotificationProbe final : public NotificationProbe
{
public:
    void query(std::function<void(NotificationProbeResult)> onResult) override
    {
        QTimer::singleShot(0, &m_context, [onResult = std::move(onResult)] {
            onResult({NotificationPermission::unavailable, false});
        });
    }
    void request(std::function<void(NotificationProbeResult)> onResult) override { query(std::move(onResult)); }

private:
    QObject m_context;
};

struct ServiceAdapters
{
    MessageBoxAlert alert;
    AbsentSystemSettings systemSettings;
    AbsentNotificationProbe notificationProbe;
};

std::vector<std::unique_ptr<TrayIcon>> makeTrays()
{
    std::vector<std::unique_ptr<TrayIcon>> trays;
    trays.push_back(std::make_unique<ToolkitTray>(std::make_unique<ToolkitTrayPresence>()));
    return trays;
}

struct SurfaceAdapters
{
    SurfaceAdapters(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts)
        : screens(runLoop, windowSystem)
        , viewHost(appearance, texts, windowSystem)
        , statusItem(makeTrays(), appearance, defaults, windowSystem)
    {
    }

    ToolkitWindowSystem windowSystem;
    DesktopAppearance appearance;
    ToolkitTheme toolkitTheme{appearance};
    AbsentActivationPolicy activationPolicy;
    ApplicationClickMonitor clickMonitor;
    DesktopScreens screens;
    ApplicationKeyMonitor keyMonitor;
    PluginViewHost viewHost;
    StatusItemSwitch statusItem;
    FileDialogSavePanel savePanel;
};

class PortableDesktop final : public DesktopPlatform
{
public:
    [[nodiscard]] bool opensDisplay() override { return opensPortableDisplay(); }
    [[nodiscard]] Findings findings() override
    {
        return {{QStringLiteral("display"), Finding::Mark::there, QStringLiteral("it answers"), {}},
                PluginViewHost::findPlugin()};
    }
    [[nodiscard]] DesktopServices services() override
    {
        const auto adapters = std::make_shared<ServiceAdapters>();
        return {adapters, adapters->alert, adapters->systemSettings, adapters->notificationProbe};
    }
    [[nodiscard]] DesktopPorts ports(MainRunLoop &runLoop, UserDefaults &defaults, QObject &texts) override
    {
        const auto adapters = std::make_shared<SurfaceAdapters>(runLoop, defaults, texts);
        return {adapters,
                adapters->appearance,
                adapters->activationPolicy,
                adapters->clickMonitor,
                adapters->screens,
                adapters->keyMonitor,
                adapters->viewHost,
                adapters->statusItem,
                adapters->savePanel,
                adapters->windowSystem.canPlaceWindows()};
    }
    [[nodiscard]] Cancellable onDisplayLost(std::function<void()> onLost) override
    {
        return Cancellable([loss = std::make_shared<DisplayLoss>(std::move(onLost))]() mutable { loss.reset(); });
    }
};

}

std::unique_ptr<DesktopPlatform> makeDesktopPlatform()
{
    return std::make_unique<PortableDesktop>();
}

}
