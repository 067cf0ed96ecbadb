#pragma once

#include "Fakes/EngineFixture.h"
#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeHotKeys.h"
#include "Fakes/FakeStatusItem.h"
#include "Fakes/FakeSurroundings.h"
#include "Fakes/VideosFixture.h"
#include "MainWindow/MainWindowViewModel.h"
#include "MainWindow/OnboardingViewModel.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Statistics/HistoryEditor.h"
#include "StatisticsViews/SessionExport.h"

namespace tomcatto {

/// Every view model of the main window and of onboarding over an engine and a desktop that a test controls.
class MainWindowFixture
{
public:
    explicit MainWindowFixture(SelectedLanguage chosen = SelectedLanguage::en,
                               const std::optional<QString> &remoteAddress = {})
        : library(remoteAddress)
    {
        languageService.setLanguage(chosen);
        engine.settings.setSelectedLanguage(chosen);
    }

    EngineFixture engine;
    FakeLoginItem loginItem;
    FakeAlert alert;
    FakeSystemSettings systemSettings;
    FakeNotificationProbe probe;
    VideosFixture library;
    LanguageOverrideService languageService{engine.defaults, {QStringLiteral("en")}};
    LocalizedStrings strings{languageService};
    LaunchAtLoginService launchAtLogin{engine.settings, loginItem,
                                       LaunchAtLoginService::FailureAlert{alert, systemSettings, strings}};
    quillbay::NotificationAuthorization authorization{probe};
    TimerPageViewModel timer{engine.settings, engine.machine, strings};
    FakeHotKeys hotKeys;
    FakeKeyMonitor keys;
    ManualClickMonitor clicks;
    ShortcutsService shortcutsService{engine.defaults};
    ShortcutsViewModel shortcuts{shortcutsService, hotKeys, keys, clicks, strings};
    FakeSurroundings surroundings{engine.runLoop};
    MannersSettings mannersSettings{engine.defaults};
    MannersViewModel manners{mannersSettings, surroundings.ports(), strings};
    GeneralPageViewModel general{engine.settings, launchAtLogin, authorization, systemSettings,
                                 languageService, strings,       shortcuts,     manners};
    RemoteLibraryViewModel remoteLibrary{library.remote.provider, library.remoteStills, strings, library.clock,
                                         library.runLoop};
    VideosPageViewModel videos{library.commands, library.repository, library.files, library.movedVideoSearch,
                               library.bundled,  remoteLibrary,      strings,       library.runLoop};
    SessionRepository history{library.stack, engine.wallClock};
    StatsAggregator aggregator{history, engine.wallClock};
    HistoryEditor editor{library.stack, engine.wallClock, engine.identifiers, [] { return std::nullopt; }};
    FakeSavePanel savePanel;
    SessionExport sessionExport{aggregator, strings, engine.wallClock, savePanel};
    StatisticsPageViewModel statistics{
        {aggregator, engine.settings, strings, engine.wallClock, sessionExport}, editor, engine.runLoop};
    PermissionsPageViewModel permissions{engine.settings, launchAtLogin, authorization, systemSettings, strings};
    AboutPageViewModel about{QStringLiteral("1.0.0"), strings};
    MainWindowRouter router;
    AppMenuCommands commands{router, {[] {}, [] {}, [] {}}};
    MainWindowViewModel window{{timer, general, videos, statistics, permissions, about}, commands, strings};
    OnboardingViewModel onboarding{engine.settings, authorization, systemSettings, strings, engine.wallClock};
};

}
