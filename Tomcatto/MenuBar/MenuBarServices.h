#pragma once

#include "Localization/LocalizedStrings.h"
#include "Manners/MannersService.h"
#include "Platform/Ports/MonotonicClock.h"
#include "Platform/Ports/WallClock.h"
#include "StatisticsViews/SessionExport.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// What the status item and its panel read and drive. Everything outlives whatever holds this.
struct MenuBarServices
{
    PomodoroStateMachine &stateMachine;
    const PomodoroTimer &timer;
    const PomodoroSettings &settings;
    const StatsAggregator &statsAggregator;
    MannersService &manners;
    LocalizedStrings &strings;
    const MonotonicClock &monotonicClock;
    WallClock &wallClock;
    MainRunLoop &runLoop;
    UserDefaults &defaults;
    SessionExport &sessionExport;
};

}
