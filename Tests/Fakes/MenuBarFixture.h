#pragma once

#include "Fakes/FakeDesktopServices.h"
#include "Fakes/MannersFixture.h"
#include "MenuBar/MenuBarServices.h"
#include "Unit/Statistics/ManualSessionHistory.h"

namespace tomcatto {

/// What the menu bar needs, over an engine and a history that a test controls, with texts in one language.
struct MenuBarFixture : MannersFixture
{
    explicit MenuBarFixture(const QString &languageCode = QStringLiteral("en"))
        : language(defaults, {languageCode})
    {
    }

    ManualSessionHistory history;
    StatsAggregator aggregator{history, wallClock};
    LanguageOverrideService language;
    LocalizedStrings strings{language};
    FakeSavePanel savePanel;
    SessionExport sessionExport{aggregator, strings, wallClock, savePanel};
    MenuBarServices services{machine, timer,     settings, aggregator, manners,      strings,
                             clock,   wallClock, runLoop,  defaults,   sessionExport};
};

}
