#include "Composition/AppDependencies.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>

namespace tomcatto {

namespace {

std::unique_ptr<quillbay::NotificationAuthorization> makeNotificationAuthorization(const DesktopServices *desktop)
{
    return desktop ? std::make_unique<quillbay::NotificationAuthorization>(desktop->notificationProbe) : nullptr;
}

/// A marker stays until its phase is recorded, so there is never a moment without both.
std::optional<EndedPhase> runningPhase(const std::optional<InFlightSessionMarker> &marker)
{
    const auto phase = marker ? fromRawValue<PomodoroPhase>(marker->phase) : std::nullopt;
    if (!phase)
        return std::nullopt;
    EndedPhase running;
    running.phase = *phase;
    running.startedAt = marker->startedAt;
    running.plannedSeconds = marker->plannedDurationSeconds;
    running.cycleIndex = marker->cycleIndex;
    return running;
}

RemoteLibrary::Surroundings librarySurroundings(const PlatformServices &platform)
{
    return {platform.remoteManifestUrl, platform.httpSession, platform.defaults, platform.wallClock,
            *QRandomGenerator::global()};
}

/// The texts may be built later: they are read when something failed.
std::optional<LaunchAtLoginService::FailureAlert> failureAlert(const DesktopServices *desktop,
                                                               const LocalizedStrings &strings)
{
    if (!desktop)
        return std::nullopt;
    return LaunchAtLoginService::FailureAlert{desktop->alert, desktop->systemSettings, strings};
}

}

AppDependencies::AppDependencies(const PlatformServices &services)
    : platform(services)
    , coreDataStack(platform.applicationSupportDirectory)
    , settings(platform.defaults)
    , timer(platform.monotonicClock, platform.runLoop)
    , stateMachine(settings, timer, platform.runLoop, platform.identifiers)
    , sessionRepository(coreDataStack, platform.wallClock)
    , userVideoRepository(coreDataStack, platform.wallClock, platform.identifiers, *platform.bookmarks,
                          platform.stillFrame)
    , storeFollower(coreDataStack, platform.fileWatch, platform.runLoop)
    , inFlightStore(platform.defaults)
    , session(stateMachine, timer, settings, sessionRepository, inFlightStore,
              {platform.monotonicClock, platform.wallClock, platform.runLoop, platform.identifiers})
    , bundledVideoProvider(platform.bundledVideosDirectory)
    , movedVideoSearch(userVideoRepository, platform.bookmarks, platform.runLoop)
    , videoFiles(userVideoRepository, platform.bookmarks, platform.runLoop)
    , userVideoProvider(userVideoRepository, videoFiles, movedVideoSearch)
    , remoteLibrary(QFileInfo(coreDataStack.storePath()).path(), librarySurroundings(platform))
    , remoteVideoProvider(remoteLibrary.provider)
    , videoCatalog(bundledVideoProvider, userVideoProvider, &remoteVideoProvider, *QRandomGenerator::global())
    , userVideoCommands(userVideoRepository, platform.stillFrame, platform.runLoop)
    , manners({stateMachine, timer, platform.defaults, platform.wallClock, platform.runLoop,
               platform.desktop ? std::optional(platform.desktop->surroundings) : std::nullopt})
    // The texts are built later; it asks for none before the application starts.
    , notificationCenterService(
          settings, stateMachine,
          {platform.notificationCenter, platform.runLoop, platform.identifiers, strings, manners, platform.wallClock})
    , notificationAuthorization(makeNotificationAuthorization(platform.desktop))
    , phaseSoundService(settings, platform.systemSounds)
    , statsAggregator(sessionRepository, platform.wallClock)
    , historyEditor(coreDataStack, platform.wallClock, platform.identifiers,
                    [this] { return runningPhase(inFlightStore.load()); })
    , historyImporter(coreDataStack, platform.identifiers, platform.runLoop)
    , launchAtLoginService(settings, platform.loginItem, failureAlert(platform.desktop, strings))
    , languageOverrideService(platform.defaults)
    , strings(languageOverrideService)
    , shortcutsService(platform.defaults)
    , sleepWakeObserver(platform.workspacePower, platform.monotonicClock)
    , sleepWakeCoordinator(stateMachine, timer, sleepWakeObserver)
    , widgetBridge(stateMachine, timer, settings, statsAggregator,
                   {platform.wallClock, platform.runLoop, platform.widgetCenter, platform.widgetSnapshotFile})
{
}

}
