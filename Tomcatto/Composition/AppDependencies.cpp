#include "Composition/AppDependencies.h"

#include <QtCore/QRandomGenerator>

namespace tomcatto {

AppDependencies::AppDependencies(const PlatformServices &services)
    : platform(services)
    , coreDataStack(platform.applicationSupportDirectory)
    , settings(platform.defaults)
    , timer(platform.monotonicClock, platform.runLoop)
    , stateMachine(settings, timer, platform.runLoop, platform.identifiers)
    , sessionRepository(coreDataStack, platform.wallClock)
    , userVideoRepository(coreDataStack, platform.wallClock, platform.identifiers, platform.bookmarks,
                          platform.stillFrame)
    , inFlightStore(platform.defaults)
    , session(stateMachine, settings, sessionRepository, inFlightStore,
              {platform.monotonicClock, platform.wallClock, platform.runLoop, platform.identifiers})
    , bundledVideoProvider(platform.bundledVideosDirectory)
    , movedVideoSearch(userVideoRepository, platform.bookmarks)
    , userVideoProvider(userVideoRepository, platform.bookmarks, movedVideoSearch)
    // The remote library's place between the two is still empty.
    , videoCatalog(bundledVideoProvider, userVideoProvider, nullptr, *QRandomGenerator::global())
    , userVideoCommands(userVideoRepository, platform.stillFrame)
    , sessionHistory(sessionRepository)
    , statsAggregator(sessionHistory, platform.wallClock)
    , languageOverrideService(platform.defaults)
    , strings(languageOverrideService)
    , sleepWakeObserver(platform.workspacePower, platform.monotonicClock)
    , sleepWakeCoordinator(stateMachine, timer, sleepWakeObserver)
{
}

}
