#include "App/DesktopSurfaces.h"

#include "App/ApplicationVersion.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>

namespace tomcatto {

DesktopSurfaces::DesktopSurfaces(AppDependencies &dependencies, DesktopPorts desktop, Cancellable displayLoss,
                                 std::function<void()> quit, QObject *parent)
    : QObject(parent)
    , m_displayLoss(std::move(displayLoss))
    , m_dependencies(dependencies)
    , m_quit(std::move(quit))
    , m_desktop(std::move(desktop))
    , m_activationPolicy(m_desktop.activationPolicy)
    , m_menuCommands(dependencies.mainWindowRouter, menuActions())
    , m_sessionExport(dependencies.statsAggregator, dependencies.strings, dependencies.platform.wallClock,
                      m_desktop.savePanel)
    , m_timerPage(dependencies.settings, dependencies.stateMachine, dependencies.strings)
    , m_shortcuts(dependencies.shortcutsService, dependencies.platform.desktop->hotKeys, m_desktop.keyMonitor,
                  m_desktop.clickMonitor, dependencies.strings)
    , m_manners(dependencies.manners.settings(), dependencies.platform.desktop->surroundings, dependencies.strings)
    , m_generalPage(dependencies.settings, dependencies.launchAtLoginService, *dependencies.notificationAuthorization,
                    dependencies.platform.desktop->systemSettings, dependencies.languageOverrideService,
                    dependencies.strings, m_shortcuts, m_manners)
    , m_remoteStills(dependencies.platform.httpSession, dependencies.platform.stillFrame, dependencies.platform.runLoop)
    , m_remoteLibrary(dependencies.remoteVideoProvider, m_remoteStills, dependencies.strings,
                      dependencies.platform.wallClock, dependencies.platform.runLoop)
    , m_videosPage(dependencies.userVideoCommands, dependencies.userVideoRepository, dependencies.videoFiles,
                   dependencies.movedVideoSearch, dependencies.bundledVideoProvider, m_remoteLibrary,
                   dependencies.strings, dependencies.platform.runLoop)
    , m_statisticsPage({dependencies.statsAggregator, dependencies.settings, dependencies.strings,
                        dependencies.platform.wallClock, m_sessionExport},
                       dependencies.historyEditor, dependencies.platform.runLoop)
    , m_permissionsPage(dependencies.settings, dependencies.launchAtLoginService,
                        *dependencies.notificationAuthorization, dependencies.platform.desktop->systemSettings,
                        dependencies.strings)
    , m_aboutPage(applicationVersion(), dependencies.strings)
    , m_mainWindowModel({m_timerPage, m_generalPage, m_videosPage, m_statisticsPage, m_permissionsPage, m_aboutPage},
                        m_menuCommands, dependencies.strings)
    , m_onboardingModel(dependencies.settings, *dependencies.notificationAuthorization,
                        dependencies.platform.desktop->systemSettings, dependencies.strings,
                        dependencies.platform.wallClock)
    , m_windows(m_desktop.viewHost, dependencies.platform.runLoop)
    , m_overlayWindows({dependencies.stateMachine, dependencies.timer, dependencies.settings, dependencies.strings},
                       m_windows, overlayVideos())
    , m_breakPreviewController(dependencies.settings, dependencies.strings, dependencies.platform.runLoop, m_windows,
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
    const PlatformServices &platform = m_dependencies.platform;
    m_statusItemController = std::make_unique<StatusItemController>(
        MenuBarServices{m_dependencies.stateMachine, m_dependencies.timer, m_dependencies.settings,
                        m_dependencies.statsAggregator, m_dependencies.manners, m_dependencies.strings,
                        platform.monotonicClock, platform.wallClock, platform.runLoop, platform.defaults,
                        m_sessionExport},
        StatusItemController::Platform{m_desktop.statusItem, m_windows, m_desktop.clickMonitor},
        m_dependencies.mainWindowRouter);
    connect(m_statusItemController.get(), &StatusItemController::quitRequested, this, m_quit);
    m_breakOverlayController = std::make_unique<BreakOverlayController>(
        m_dependencies.stateMachine, m_dependencies.timer, m_dependencies.settings, m_dependencies.manners,
        m_dependencies.platform.runLoop, m_desktop.screens, m_desktop.keyMonitor, m_overlayWindows);
    connect(m_breakOverlayController.get(), &BreakOverlayController::willShow, this,
            &DesktopSurfaces::makeRoomForBreak);
    connect(m_breakOverlayController.get(), &BreakOverlayController::didHide, this,
            // The phase may be about to change.
            [this] { soon([this] { openLater(); }); });
    m_statusItemController->setOnWillShow([this] { m_logger.debug(QStringLiteral("the panel opens")); });
    m_statusItemController->setOnDidClose([this] { m_logger.debug(QStringLiteral("the panel is closed")); });
    m_mainWindowController = std::make_unique<MainWindowController>(m_windows, m_dependencies.mainWindowRouter,
                                                                    m_activationPolicy, m_mainWindowModel);
    m_onboardingController = std::make_unique<OnboardingController>(m_windows, m_dependencies.settings,
                                                                    m_dependencies.stateMachine, m_onboardingModel);
    connect(&m_dependencies.notificationCenterService, &NotificationCenterService::activationRequested, this,
            &DesktopSurfaces::activate);
    connectPages();
    updateCapabilities();
    m_hotKeySupport = m_dependencies.platform.desktop->hotKeys.onSupportChanged([this] { updateCapabilities(); });
    m_itemForms = m_desktop.statusItem.onFormsChanged([this] {
        updateCapabilities();
        // The panel opens at the item, which takes its place by then.
        m_itemSettled = m_dependencies.platform.runLoop.after(std::chrono::milliseconds(0), [this] { followItem(); });
    });
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
    connect(&m_videosPage, &VideosPageViewModel::previewRequested, this, &DesktopSurfaces::previewFromPage);
    connect(&m_videosPage, &VideosPageViewModel::previewBundledRequested, this, &DesktopSurfaces::previewFile);
    connect(&m_remoteLibrary, &RemoteLibraryViewModel::previewRequested, this, &DesktopSurfaces::previewFile);
    connect(&m_videosPage, &VideosPageViewModel::previewBreakRequested, this,
            [this] { previewVideo({}, [](PreviewOutcome) {}); });
    const auto postTest = [this] { m_dependencies.notificationCenterService.postTest(); };
    connect(&m_permissionsPage, &PermissionsPageViewModel::testNotificationRequested, this, postTest);
    connect(&m_permissionsPage, &PermissionsPageViewModel::hotKeysRequested, this, [this] {
        // Without keys there is nothing to ask for yet.
        if (m_dependencies.shortcutsService.hasBindings())
            m_dependencies.shortcutsService.apply();
        else
            m_mainWindowModel.show(MainWindowPage::general);
    });
    connect(&m_onboardingModel, &OnboardingViewModel::testNotificationRequested, this, postTest);
    connect(&m_aboutPage, &AboutPageViewModel::copyRequested, this,
            [](const QString &text) { QGuiApplication::clipboard()->setText(text); });
    connect(&m_aboutPage, &AboutPageViewModel::linkRequested, this,
            [](const QUrl &address) { QDesktopServices::openUrl(address); });
}

void DesktopSurfaces::chooseVideos(const QString &title, const QStringList &filters)
{
    m_desktop.openPanel.ask({title, filters}, [this](const QList<QUrl> &files) { m_videosPage.addFiles(files); });
}

AppMenuCommands::Actions DesktopSurfaces::menuActions()
{
    return {[this] { m_mainWindowController->openWindow(); }, [this] { m_mainWindowController->closeWindow(); },
            m_quit};
}

BreakVideoSource DesktopSurfaces::overlayVideos()
{
    BreakVideoSource videos = oneVideo({});
    videos.next = [this](std::function<void(const BreakVideo &)> done) {
        m_dependencies.videoCatalog.nextVideoUrl([this, done = std::move(done)](const std::optional<QUrl> &url) {
            const auto own = url ? m_dependencies.userVideoProvider.candidateAt(*url) : std::nullopt;
            done({url.value_or(QUrl()), own ? thumbnail(*own) : posterBeside(url.value_or(QUrl()))});
        });
    };
    videos.finished = [this] { m_dependencies.userVideoProvider.endAccess(); };
    return videos;
}

BreakVideoSource DesktopSurfaces::oneVideo(const BreakVideo &video)
{
    return {[video](const std::function<void(const BreakVideo &)> &done) { done(video); },
            {},
            [this] { noteMissingSound(); }};
}

QUrl DesktopSurfaces::thumbnail(const QUuid &id) const
{
    const auto video = m_dependencies.userVideoRepository.video(id);
    if (!video || video->thumbnailData.isEmpty())
        return {};
    return QUrl(QStringLiteral("data:image/jpeg;base64,") + QString::fromLatin1(video->thumbnailData.toBase64()));
}

void DesktopSurfaces::noteMissingSound()
{
    // Every break would say the same.
    if (!std::exchange(m_hasMissedSound, true))
        m_logger.info(QStringLiteral("there is no sound device; videos play without sound"));
}

void DesktopSurfaces::previewVideo(const QString &id, const std::function<void(PreviewOutcome)> &done)
{
    if (m_breakOverlayController->isShown())
        return done(PreviewOutcome::duringBreak);
    if (id.isEmpty()) {
        BreakVideoSource videos = overlayVideos();
        // A preview that closes for a break lets go of nothing that the break plays.
        videos.finished = [overlay = QPointer(m_breakOverlayController.get()), finished = std::move(videos.finished)] {
            if (!overlay || !overlay->isShown())
                finished();
        };
        return done(openPreview(videos, m_breakPreviewController.await()));
    }
    const QUuid video = QUuid::fromString(id);
    const int preview = m_breakPreviewController.await();
    m_dependencies.userVideoProvider.open(video, [this, video, done, preview](const std::optional<VideoPlace> &place) {
        done(previewPlace(video, place, preview));
    });
}

DesktopSurfaces::PreviewOutcome DesktopSurfaces::previewPlace(const QUuid &id, const std::optional<VideoPlace> &place,
                                                              int preview)
{
    if (!place)
        return PreviewOutcome::noVideo;
    if (place->state == VideoPlace::State::silent)
        return PreviewOutcome::fileSilent;
    if (place->state == VideoPlace::State::lost)
        return PreviewOutcome::fileGone;
    if (!place->access->hasAccess())
        return PreviewOutcome::fileUnreadable;
    // A break may have begun while the disk was asked.
    if (m_breakOverlayController->isShown())
        return PreviewOutcome::duringBreak;
    if (!m_breakPreviewController.isAwaited(preview))
        return PreviewOutcome::overtaken;
    BreakVideoSource source = oneVideo({place->fileUrl, thumbnail(id)});
    // The access to the file lasts as long as the preview holds its source.
    source.finished = [access = place->access] {};
    return openPreview(source, preview);
}

DesktopSurfaces::PreviewOutcome DesktopSurfaces::openPreview(const BreakVideoSource &videos, int preview)
{
    m_breakPreviewController.open(videos, preview);
    return m_breakPreviewController.isOpen() ? PreviewOutcome::opened : PreviewOutcome::noView;
}

void DesktopSurfaces::previewFromPage(const QString &id)
{
    previewVideo(id, [this, id](PreviewOutcome outcome) {
        if (outcome == PreviewOutcome::fileGone)
            m_videosPage.previewFailed(id, VideoFileError::notFound);
        else if (outcome == PreviewOutcome::fileUnreadable)
            m_videosPage.previewFailed(id, VideoFileError::unreadable);
        else if (outcome == PreviewOutcome::fileSilent)
            m_videosPage.previewFailed(id, VideoFileError::timedOut);
    });
}

void DesktopSurfaces::previewFile(const QUrl &file)
{
    m_breakPreviewController.open(oneVideo({file, posterBeside(file)}));
}

void DesktopSurfaces::activate()
{
    // A break lies over everything already.
    if (m_breakOverlayController->isShown())
        return;
    if (m_mainWindowController->isOpen())
        m_mainWindowController->openWindow();
    else
        m_statusItemController->showPopover();
}

void DesktopSurfaces::revealPopover()
{
    // The panel opens at the item, which at the start does not know yet where it shows.
    onceItemShows([this] { m_statusItemController->showPopover(); });
}

void DesktopSurfaces::showOnboardingIfNeeded()
{
    const auto show = [this] { m_onboardingController->showIfNeeded(); };
    // Elsewhere a pill that came later would take the keyboard away.
    if (m_desktop.canPlaceWindows)
        show();
    else
        onceItemShows(show);
}

void DesktopSurfaces::onceItemShows(std::function<void()> action)
{
    m_waitForItem.push_back(std::move(action));
    followItem();
}

void DesktopSurfaces::followItem()
{
    const StatusItemForms forms = m_desktop.statusItem.forms();
    if (forms.squareSizes.empty() && !forms.pillScale)
        return;
    for (const auto &action : std::exchange(m_waitForItem, {}))
        action();
}

void DesktopSurfaces::soon(std::function<void()> action)
{
    m_dependencies.platform.runLoop.async(*this, std::move(action));
}

void DesktopSurfaces::openLater()
{
    if (m_opensLater)
        static_cast<void>(whenUncovered(std::exchange(m_opensLater, nullptr)));
}

void DesktopSurfaces::makeRoomForBreak()
{
    // One video is heard, and Esc is the break's.
    m_breakPreviewController.close();
    m_statusItemController->closePopover();
}

DesktopSurfaces::WindowOutcome DesktopSurfaces::whenUncovered(std::function<WindowOutcome()> open)
{
    if (!m_breakOverlayController->isShown())
        return open();
    m_opensLater = std::move(open);
    return WindowOutcome::opened;
}

DesktopSurfaces::WindowOutcome DesktopSurfaces::showPanel()
{
    return whenUncovered(
        [this] { return m_statusItemController->showPopover() ? WindowOutcome::opened : WindowOutcome::noView; });
}

DesktopSurfaces::WindowOutcome DesktopSurfaces::openWindow(const QString &page)
{
    const auto wanted = mainWindowPageFromRawValue(page);
    if (!wanted && !page.isEmpty())
        return WindowOutcome::noPage;
    return whenUncovered([this, wanted] {
        if (wanted)
            m_dependencies.mainWindowRouter.open(*wanted);
        else
            m_dependencies.mainWindowRouter.open();
        return m_mainWindowController->isOpen() ? WindowOutcome::opened : WindowOutcome::noView;
    });
}

void DesktopSurfaces::applyTheme()
{
    switch (m_dependencies.settings.themePreference()) {
    case ThemePreference::system:
        return m_desktop.theme.setDarkOverride(std::nullopt);
    case ThemePreference::light:
        return m_desktop.theme.setDarkOverride(false);
    case ThemePreference::dark:
        return m_desktop.theme.setDarkOverride(true);
    }
}

void DesktopSurfaces::updateCapabilities()
{
    const StatusItemForms forms = m_desktop.statusItem.forms();
    const bool canPlace = m_desktop.canPlaceWindows;
    DesktopCapabilities capabilities;
    if (forms.squareSizes.empty())
        capabilities.tray = canPlace ? DesktopSupport::none : DesktopSupport::limited;
    capabilities.overlay = canPlace ? DesktopSupport::full : DesktopSupport::limited;
    capabilities.hotKeys = m_dependencies.platform.desktop->hotKeys.support();
    capabilities.placesPanel = canPlace;
    capabilities.showsPill = forms.pillScale.has_value();
    capabilities.opensAtLogin = m_dependencies.platform.loginItem.status() != LoginItemStatus::unavailable;
    capabilities.noticesSleep = m_dependencies.platform.workspacePower.tellsOfSleep();
    m_permissionsPage.setCapabilities(capabilities);
    m_onboardingModel.setCapabilities(capabilities);
}

}
