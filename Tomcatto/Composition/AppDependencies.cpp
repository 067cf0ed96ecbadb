#include "Composition/AppDependencies.h"

namespace tomcatto {

AppDependencies::AppDependencies(const PlatformServices &services)
    : platform(services)
    , coreDataStack(platform.applicationSupportDirectory)
    , settings(platform.defaults)
    , timer(platform.monotonicClock, platform.runLoop)
    , stateMachine(settings, timer, platform.runLoop, platform.identifiers)
    , sessionRepository(coreDataStack, platform.wallClock)
    , inFlightStore(platform.defaults)
    , session(stateMachine, settings, sessionRepository, inFlightStore,
              {platform.monotonicClock, platform.wallClock, platform.runLoop, platform.identifiers})
    , sessionHistory(sessionRepository)
    , statsAggregator(sessionHistory, platform.wallClock)
    , languageOverrideService(platform.defaults)
    , strings(languageOverrideService)
    , sleepWakeObserver(platform.workspacePower, platform.monotonicClock)
    , sleepWakeCoordinator(stateMachine, timer, sleepWakeObserver)
{
}

}
