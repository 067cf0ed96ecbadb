#include "App/DesktopSurfaces.h"

#include "App/ApplicationVersion.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>

namespace tomcatto {

namespace {

/// A compositor of this kind gives windows neither a place nor a layer of their own choice, and the keyboard as they
/// come.
bool isPlacedByCompositor()
{
    return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

}

DesktopSurfaces::DesktopSurfaces(AppDependencies &dependencies, std::function<void()> quit, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_quit(std::move(quit))
    , m_appearance(QDBusConnection::sessionBus())
    , m_screens(dependencies.platform.runLoop)
    , m_viewHost(m_appearance)
    , m_statusItem(QDBusConnection::sessionBus(), m_appearance, dependencies.platform.defaults)
    , m_activationPolicy(m_taskbarPresence)
    , m_menuCommands(dependencies.mainWindowRouter, menuActions())
    , m_timerPage(dependencies.settings, dependencies.stateMachine, dependencies.strings)
    , m_generalPage(dependencies.settings, dependencies.launchAtLoginService, *dependencies.notificationAuthorization,
                    dependencies.platform.desktop->systemSettings, dependencies.languageOverrideService,
                    dependencies.strings)
    , m_videosPage(dependencies.userVideoCommands, dependencies.userVideoRepository, dependencies.movedVideoSearch,
                   dependencies.bundledVideoProvider, dependencies.strings)
    , m_permissionsPage(dependencies.settings, dependencies.launchAtLoginService,
                        *dependencies.notificationAuthorization, dependencies.platform.desktop->systemSettings,
                        dependencies.strings)
    , m_aboutPage(applicationVersion(), dependencies.strings)
    , m_mainWindowModel({m_timerPage, m_generalPage, m_videosPage, m_permissionsPage, m_aboutPage}, m_menuCommands,
                        dependencies.strings)
    , m_onboardingModel(dependencies.settings, *dependencies.notificationAuthorization,
                        dependencies.platform.desktop->systemSettings, dependencies.strings)
    , m_overlayWindows({dependencies.stateMachine, dependencies.timer, dependencies.settings, dependencies.strings},
                       dependencies.strings, m_viewHost, m_screens, dependencies.platform.runLoop, overlayVideos())
    , m_breakPreviewController(dependencies.settings, dependencies.strings, dependencies.platform.runLoop, m_viewHost,
                               m_activationPolicy)
{
}

DesktopSurfaces::~DesktopSurfaces() = default;

void DesktopSurfaces::prepare()
{
    applyTheme();
    connect(&m_dependencies.settings, &PomodoroSettings::changed, this, [this](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::themePreference)
            applyTheme();
    });
}

void DesktopSurfaces::install()
{
    m_statusItemController = std::make_unique<StatusItemController>(
        m_dependencies, StatusItemController::Platform{m_statusItem, m_viewHost, m_clickMonitor},
        m_dependencies.mainWindowRouter);
    connect(m_statusItemController.get(), &StatusItemController::quitRequested, this, m_quit);
    m_breakOverlayController = std::make_unique<BreakOverlayController>(
        m_dependencies.stateMachine, m_dependencies.timer, m_dependencies.settings, m_dependencies.platform.runLoop,
        m_screens, m_keyMonitor, m_overlayWindows);
    m_statusItemController->setOnWillShow([this] {
        m_logger.debug(QStringLiteral("the panel opens"));
        // An open menu holds the keyboard, which the panel shall have at once.
        if (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
    });
    m_statusItemController->setOnDidClose([this] { m_logger.debug(QStringLiteral("the panel is closed")); });
    m_mainWindowController = std::make_unique<MainWindowController>(
        m_viewHost, m_dependencies.mainWindowRouter, m_activationPolicy, m_mainWindowModel, m_dependencies.strings);
    m_onboardingController = std::make_unique<OnboardingController>(
        m_viewHost, m_dependencies.settings, m_dependencies.stateMachine, m_onboardingModel, m_dependencies.strings);
    connectPages();
    updateCapabilities();
    connect(&m_statusItem, &StatusItemSwitch::formsChanged, this, &DesktopSurfaces::updateCapabilities);
}

void DesktopSurfaces::connectPages()
{
    connect(&m_generalPage, &GeneralPageViewModel::floatingPillRequested, m_statusItemController.get(),
            &StatusItemController::setPillWanted);
    connect(m_statusItemController.get(), &StatusItemController::pillChoiceChanged, &m_generalPage,
            &GeneralPageViewModel::setFloatingPill);
    m_generalPage.setFloatingPill(m_statusItemController->pillChoice());
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
    if (m_videosDialog) {
        m_videosDialog->raise();
        m_videosDialog->activateWindow();
        return;
    }
    // Not modal to the process: the timer and its windows go on.
    auto *const dialog =
        new QFileDialog(nullptr, title, QDir(m_videosFolder).exists() ? m_videosFolder : QDir::homePath());
    m_videosDialog = dialog;
    dialog->setNameFilters(filters);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    // The dialog that is made of widgets does not emit `urlsSelected`.
    connect(dialog, &QDialog::accepted, &m_videosPage, [this, dialog] {
        m_videosFolder = dialog->directory().path();
        m_videosPage.addFiles(dialog->selectedUrls());
    });
    connect(this, &QObject::destroyed, dialog, [dialog] { delete dialog; });
    dialog->show();
}

AppMenuCommands::Actions DesktopSurfaces::menuActions()
{
    return {[this] { m_mainWindowController->openWindow(); }, [this] { m_mainWindowController->closeWindow(); },
            m_quit};
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
    // The panel opens at the item, which at the start does not know yet where it shows.
    const StatusItemForms forms = m_statusItem.forms();
    if (forms.squareSizes.empty() && !forms.pillScale) {
        connect(&m_statusItem, &StatusItemSwitch::formsChanged, this, &DesktopSurfaces::revealPopover,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        return;
    }
    afterStatusItem([this] { m_statusItemController->showPopover(); });
}

void DesktopSurfaces::showOnboardingIfNeeded()
{
    afterStatusItem([this] { m_onboardingController->showIfNeeded(); });
}

void DesktopSurfaces::afterStatusItem(const std::function<void()> &action)
{
    const StatusItemForms forms = m_statusItem.forms();
    if (!isPlacedByCompositor() || forms.pillScale || !forms.squareSizes.empty())
        return action();
    connect(
        &m_statusItem, &StatusItemSwitch::formsChanged, this, [this, action] { afterStatusItem(action); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void DesktopSurfaces::showPanel()
{
    m_statusItemController->showPopover();
}

bool DesktopSurfaces::openWindow(const QString &page)
{
    if (page.isEmpty()) {
        m_dependencies.mainWindowRouter.open();
        return true;
    }
    const auto wanted = mainWindowPageFromRawValue(page);
    if (wanted)
        m_dependencies.mainWindowRouter.open(*wanted);
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
    const bool placesWindowsItself = isPlacedByCompositor();
    DesktopCapabilities capabilities;
    if (!m_statusItem.hasTray())
        capabilities.tray = placesWindowsItself ? DesktopSupport::limited : DesktopSupport::none;
    capabilities.overlay = placesWindowsItself ? DesktopSupport::limited : DesktopSupport::full;
    capabilities.placesPanel = !placesWindowsItself;
    capabilities.showsPill = m_statusItem.forms().pillScale.has_value();
    m_permissionsPage.setCapabilities(capabilities);
    m_onboardingModel.setShowsPill(capabilities.showsPill);
}

}
