#include "App/DesktopSurfaces.h"

#include "App/ApplicationVersion.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QFileDialog>

namespace tomcatto {

DesktopSurfaces::DesktopSurfaces(AppDependencies &dependencies, std::function<void()> quit, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_quit(std::move(quit))
    , m_appearance(QDBusConnection::sessionBus())
    , m_systemSettings(DesktopSystemSettings::currentDesktops(), AutostartLoginItem::userFolder())
    , m_loginItem(QCoreApplication::applicationFilePath())
    , m_notificationProbe(QDBusConnection::sessionBus())
    , m_screens(dependencies.platform.runLoop)
    , m_viewHost(m_appearance)
    , m_statusItem(QDBusConnection::sessionBus(), m_appearance, dependencies.platform.defaults)
    , m_activationPolicy(m_taskbarPresence)
    , m_notificationAuthorization(m_notificationProbe)
    , m_launchAtLoginService(dependencies.settings, m_loginItem, m_alert, m_systemSettings, dependencies.strings)
    , m_timerPage(dependencies.settings, dependencies.stateMachine, dependencies.strings)
    , m_generalPage(dependencies.settings, m_launchAtLoginService, m_notificationAuthorization, m_systemSettings,
                    dependencies.languageOverrideService, dependencies.strings)
    , m_videosPage(dependencies.userVideoCommands, dependencies.userVideoRepository, dependencies.bundledVideoProvider,
                   dependencies.strings)
    , m_permissionsPage(dependencies.settings, m_launchAtLoginService, m_notificationAuthorization, m_systemSettings,
                        dependencies.strings)
    , m_aboutPage(applicationVersion(), dependencies.strings)
    , m_mainWindowModel({m_timerPage, m_generalPage, m_videosPage, m_permissionsPage, m_aboutPage},
                        dependencies.strings)
    , m_onboardingModel(dependencies.settings, m_notificationAuthorization, m_systemSettings, dependencies.strings)
    , m_overlayWindows({dependencies.stateMachine, dependencies.timer, dependencies.settings, dependencies.strings},
                       dependencies.strings, m_viewHost, m_screens, dependencies.platform.runLoop, overlayVideos())
    , m_breakPreviewController(dependencies.settings, dependencies.strings, dependencies.platform.runLoop, m_viewHost,
                               m_activationPolicy)
{
}

DesktopSurfaces::~DesktopSurfaces()
{
    // A player must be gone before what it plays from is: its window goes in later turns, and after this there are
    // none.
    m_breakPreviewController.close();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DesktopSurfaces::prepare()
{
    applyTheme();
    connect(&m_dependencies.settings, &PomodoroSettings::changed, this, [this](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::themePreference)
            applyTheme();
    });
}

void DesktopSurfaces::readLoginItem()
{
    m_launchAtLoginService.readStatus();
}

void DesktopSurfaces::install()
{
    m_statusItemController = std::make_unique<StatusItemController>(
        m_dependencies, StatusItemController::Platform{m_statusItem, m_viewHost, m_clickMonitor}, m_mainWindowRouter);
    connect(m_statusItemController.get(), &StatusItemController::quitRequested, this, m_quit);
    m_breakOverlayController = std::make_unique<BreakOverlayController>(
        m_dependencies.stateMachine, m_dependencies.timer, m_dependencies.settings, m_dependencies.platform.runLoop,
        m_screens, m_keyMonitor, m_overlayWindows);
    m_mainWindowController = std::make_unique<MainWindowController>(m_viewHost, m_mainWindowRouter, m_activationPolicy,
                                                                    m_mainWindowModel, m_dependencies.strings);
    m_onboardingController = std::make_unique<OnboardingController>(
        m_viewHost, m_dependencies.settings, m_dependencies.stateMachine, m_onboardingModel, m_dependencies.strings);
    connectPages();
    updateCapabilities();
    connect(&m_statusItem, &StatusItemSwitch::formsChanged, this, &DesktopSurfaces::updateCapabilities);
}

void DesktopSurfaces::connectPages()
{
    connect(&m_mainWindowModel, &MainWindowViewModel::quitRequested, this, m_quit);
    connect(&m_generalPage, &GeneralPageViewModel::tourRequested, this, [this] { m_onboardingController->reset(); });
    connect(&m_videosPage, &VideosPageViewModel::chooseFilesRequested, this, &DesktopSurfaces::chooseVideos);
    connect(&m_videosPage, &VideosPageViewModel::previewRequested, this,
            [this](const QString &id) { static_cast<void>(previewVideo(id)); });
    connect(&m_videosPage, &VideosPageViewModel::previewBundledRequested, this, &DesktopSurfaces::previewFile);
    connect(&m_videosPage, &VideosPageViewModel::previewBreakRequested, this,
            [this] { static_cast<void>(previewVideo({})); });
    connect(&m_aboutPage, &AboutPageViewModel::copyRequested, this,
            [](const QString &text) { QGuiApplication::clipboard()->setText(text); });
    connect(&m_aboutPage, &AboutPageViewModel::linkRequested, this,
            [](const QUrl &address) { QDesktopServices::openUrl(address); });
}

void DesktopSurfaces::chooseVideos(const QString &title, const QStringList &filters)
{
    // Not modal to the process: the timer and its windows go on.
    auto *const dialog = new QFileDialog(nullptr, title, QDir::homePath());
    dialog->setNameFilters(filters);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::urlsSelected, &m_videosPage, &VideosPageViewModel::addFiles);
    connect(this, &QObject::destroyed, dialog, &QObject::deleteLater);
    dialog->show();
}

BreakVideoSource DesktopSurfaces::overlayVideos()
{
    return {[this] { return m_dependencies.videoCatalog.nextVideoUrl().value_or(QUrl()); }, posterBeside,
            [this] { m_dependencies.userVideoProvider.endAccess(); }};
}

bool DesktopSurfaces::previewVideo(const QString &id)
{
    if (id.isEmpty()) {
        m_breakPreviewController.open(overlayVideos());
        return true;
    }
    auto selection = m_dependencies.userVideoProvider.selection(QUuid::fromString(id));
    if (!selection)
        return false;
    // The access to the file lasts as long as the preview holds its source.
    const std::shared_ptr<UserVideoSelection> video = std::move(*selection);
    m_breakPreviewController.open({[video] { return video->url(); }, posterBeside, {}});
    return true;
}

void DesktopSurfaces::previewFile(const QUrl &file)
{
    m_breakPreviewController.open({[file] { return file; }, posterBeside, {}});
}

void DesktopSurfaces::revealPopover()
{
    m_statusItemController->showPopover();
}

void DesktopSurfaces::showOnboardingIfNeeded()
{
    m_onboardingController->showIfNeeded();
}

void DesktopSurfaces::showPanel()
{
    m_statusItemController->showPopover();
}

bool DesktopSurfaces::openWindow(const QString &page)
{
    if (page.isEmpty()) {
        m_mainWindowRouter.open();
        return true;
    }
    const auto wanted = mainWindowPageFromRawValue(page);
    if (wanted)
        m_mainWindowRouter.open(*wanted);
    return wanted.has_value();
}

void DesktopSurfaces::applyTheme()
{
    switch (m_dependencies.settings.themePreference()) {
    case ThemePreference::system:
        return m_appearance.setDarkOverride(std::nullopt);
    case ThemePreference::light:
        return m_appearance.setDarkOverride(false);
    case ThemePreference::dark:
        return m_appearance.setDarkOverride(true);
    }
}

void DesktopSurfaces::updateCapabilities()
{
    // A compositor of this kind gives windows neither a place nor a layer of their own choice.
    const bool placesWindowsItself = QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
    DesktopCapabilities capabilities;
    if (!m_statusItem.hasTray())
        capabilities.tray = placesWindowsItself ? DesktopSupport::limited : DesktopSupport::none;
    capabilities.overlay = placesWindowsItself ? DesktopSupport::limited : DesktopSupport::full;
    capabilities.showsPill = m_statusItem.forms().pillScale.has_value();
    m_permissionsPage.setCapabilities(capabilities);
}

}
