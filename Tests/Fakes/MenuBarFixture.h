#pragma once

#include "Fakes/EngineFixture.h"
#include "MenuBar/MenuBarServices.h"
#include "Unit/Statistics/ManualSessionHistory.h"

namespace tomcatto {

/// What the menu bar needs, over an engine and a history that a test controls, with texts in English.
struct MenuBarFixture : EngineFixture
{
    ManualSessionHistory history;
    StatsAggregator aggregator{history, wallClock};
    LanguageOverrideService language{defaults, {QStringLiteral("en")}};
    LocalizedStrings strings{language};
    MenuBarServices services{machine, timer, settings, aggregator, strings, clock, wallClock, runLoop, defaults};
};

}
