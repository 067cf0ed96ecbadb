#pragma once

#include "App/ApplicationSurfaces.h"
#include "BreakOverlay/BreakOverlayController.h"
#include "BreakOverlay/BreakOverlayWindows.h"
#include "BreakOverlay/BreakPreviewController.h"
#include "Composition/AppDependencies.h"
#include "MainWindow/AboutPageViewModel.h"
#include "MainWindow/AppMenuCommands.h"
#include "MainWindow/GeneralPageViewModel.h"
#include "MainWindow/MainWindowController.h"
#include "MainWindow/MainWindowViewModel.h"
#include "MainWindow/OnboardingController.h"
#include "MainWindow/OnboardingViewModel.h"
#include "MainWindow/PermissionsPageViewModel.h"
#include "MainWindow/StatisticsPageViewModel.h"
#include "MainWindow/TimerPageViewModel.h"
#include "MainWindow/VideosPageViewModel.h"
#include "MenuBar/StatusItemController.h"
#include "SystemIntegration/ActivationPolicy.h"

#include <QtCore/QPointer>

namespace tomcatto {

/// Everything that is seen of the application on a desktop, over that desktop's adapters. Main thread only.
class DesktopSurfaces final : public QObject, public ApplicationSurfaces
{
    Q_OBJECT

public:
    /// @param dependencies built with what a desktop gives.
    /// @param quit ends the main loop.
    /// @param displayLoss is watched as long as this is there.
    DesktopSurfaces(AppDependencies &dependencies, DesktopPorts desktop, Cancellable displayLoss,
                    std::function<void()> quit, QObject *parent = nullptr);
    ~DesktopSurfaces() override;

    void prepare() override;
    void install() override;
    void revealPopover() override;
    void showOnboardingIfNeeded() override;

    /// What became of a wish for a preview.
    enum class PreviewOutcome {
        opened,
        duringBreak,
        /// A later preview or a break came while the disk was asked.
        overtaken,
        noVideo,
        fileGone,
        fileUnreadable,
        fileSilent,
        noView,
    };
    /// What became of a wish for the panel or the main window.
    enum class WindowOutcome {
        opened,
        noPage,
        /// Its view cannot be made; `viewProblem` says why.
        noView,
    };

    /// Opens the panel, as the status item does; while a break covers the screens, once it is over.
    [[nodiscard]] WindowOutcome showPanel();
    /// Opens the main window, likewise. @param page raw text of a page; the last one where it is empty.
    [[nodiscard]] WindowOutcome openWindow(const QString &page);
    /// Opens the preview of a break with one of the user's videos, or with the next one where the id is empty.
    void previewVideo(const QString &id, const std::function<void(PreviewOutcome)> &done);
    /// Why the last view could not be made.
    [[nodiscard]] QString viewProblem() const { return m_desktop.viewHost.problem(); }

private:
    void applyTheme();
    void updateCapabilities();
    void connectPages();
    /// Brings what is open to the front, else opens the panel.
    void activate();
    /// Does it once the status item shows somewhere.
    void onceItemShows(std::function<void()> action);
    void followItem();
    /// Does it in a later turn of the main loop.
    void soon(std::function<void()> action);
    void openLater();
    [[nodiscard]] AppMenuCommands::Actions menuActions();
    [[nodiscard]] BreakVideoSource overlayVideos();
    [[nodiscard]] BreakVideoSource oneVideo(const BreakVideo &video);
    [[nodiscard]] QUrl thumbnail(const QUuid &id) const;
    [[nodiscard]] PreviewOutcome previewPlace(const QUuid &id, const std::optional<VideoPlace> &place, int preview);
    void noteMissingSound();
    void previewFile(const QUrl &file);
    void previewFromPage(const QString &id);
    void makeRoomForBreak();
    /// Does it now, or once no break covers the screens; of several the last one. @return what `open` tells; where it
    /// waits, that it is open
    [[nodiscard]] WindowOutcome whenUncovered(std::function<WindowOutcome()> open);
    [[nodiscard]] PreviewOutcome openPreview(const BreakVideoSource &videos, int preview);
    void chooseVideos(const QString &title, const QStringList &filters);

    Cancellable m_displayLoss;
    AppDependencies &m_dependencies;
    std::function<void()> m_quit;
    const Logger m_logger{QStringLiteral("DesktopSurfaces")};

    DesktopPorts m_desktop;
    ActivationPolicy m_activationPolicy;
    AppMenuCommands m_menuCommands;

    SessionExport m_sessionExport;
    TimerPageViewModel m_timerPage;
    ShortcutsViewModel m_shortcuts;
    MannersViewModel m_manners;
    GeneralPageViewModel m_generalPage;
    RemoteStills m_remoteStills;
    RemoteLibraryViewModel m_remoteLibrary;
    VideosPageViewModel m_videosPage;
    StatisticsPageViewModel m_statisticsPage;
    PermissionsPageViewModel m_permissionsPage;
    AboutPageViewModel m_aboutPage;
    MainWindowViewModel m_mainWindowModel;
    OnboardingViewModel m_onboardingModel;

    ViewWindows m_windows;
    BreakOverlayWindows m_overlayWindows;
    BreakPreviewController m_breakPreviewController;
    std::unique_ptr<StatusItemController> m_statusItemController;
    std::unique_ptr<BreakOverlayController> m_breakOverlayController;
    std::unique_ptr<MainWindowController> m_mainWindowController;
    std::unique_ptr<OnboardingController> m_onboardingController;
    /// Waits for the end of the break.
    std::function<WindowOutcome()> m_opensLater;
    std::vector<std::function<void()>> m_waitForItem;
    Cancellable m_itemForms;
    Cancellable m_hotKeySupport;
    Cancellable m_itemSettled;
    bool m_hasMissedSound = false;
};

}
