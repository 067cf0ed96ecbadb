#pragma once

#include "Alerts/NotificationCenterService.h"
#include "Alerts/PhaseSoundService.h"
#include "Composition/PlatformServices.h"
#include "Localization/LocalizedStrings.h"
#include "Manners/MannersService.h"
#include "Media/BundledVideoProvider.h"
#include "Media/MovedVideoSearch.h"
#include "Media/RemoteLibrary.h"
#include "Media/UserVideoCommands.h"
#include "Media/UserVideoProvider.h"
#include "Media/VideoCatalog.h"
#include "Navigation/MainWindowRouter.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Persistence/Repositories/UserVideoRepository.h"
#include "Persistence/StoreFollower.h"
#include "Power/SleepWakeCoordinator.h"
#include "QuillbayKit/NotificationAuthorization.h"
#include "Recording/PomodoroSession.h"
#include "Shortcuts/ShortcutsService.h"
#include "Statistics/HistoryEditor.h"
#include "Statistics/HistoryImporter.h"
#include "Statistics/StatsAggregator.h"
#include "SystemIntegration/LaunchAtLoginService.h"
#include "Widget/WidgetBridge.h"

namespace tomcatto {

/// The composition root: builds every service once, in the order of its members, and owns it for the life of the
/// process. Surfaces hold it; services never see it. Main thread only.
class AppDependencies final
{
public:
    /// Ends the process where the store cannot be set up.
    explicit AppDependencies(const PlatformServices &platform);

    AppDependencies(const AppDependencies &) = delete;
    AppDependencies &operator=(const AppDependencies &) = delete;

    PlatformServices platform;
    CoreDataStack coreDataStack;
    PomodoroSettings settings;
    PomodoroTimer timer;
    PomodoroStateMachine stateMachine;
    SessionRepository sessionRepository;
    UserVideoRepository userVideoRepository;
    StoreFollower storeFollower;
    InFlightSessionStore inFlightStore;
    PomodoroSession session;
    BundledVideoProvider bundledVideoProvider;
    MovedVideoSearch movedVideoSearch;
    VideoFiles videoFiles;
    UserVideoProvider userVideoProvider;
    RemoteLibrary remoteLibrary;
    /// The library's.
    RemoteVideoProvider &remoteVideoProvider;
    VideoCatalog videoCatalog;
    UserVideoCommands userVideoCommands;
    MannersService manners;
    NotificationCenterService notificationCenterService;
    /// Nothing without a desktop.
    std::unique_ptr<quillbay::NotificationAuthorization> notificationAuthorization;
    PhaseSoundService phaseSoundService;
    StatsAggregator statsAggregator;
    HistoryEditor historyEditor;
    HistoryImporter historyImporter;
    LaunchAtLoginService launchAtLoginService;
    LanguageOverrideService languageOverrideService;
    LocalizedStrings strings;
    ShortcutsService shortcutsService;
    MainWindowRouter mainWindowRouter;
    SleepWakeObserver sleepWakeObserver;
    SleepWakeCoordinator sleepWakeCoordinator;
    WidgetBridge widgetBridge;
};

}
