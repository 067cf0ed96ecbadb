#pragma once

#include "Composition/AppDependencies.h"
#include "Fakes/FakeAlerts.h"
#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeHotKeys.h"
#include "Fakes/FakeHttpSession.h"
#include "Fakes/FakeSurroundings.h"
#include "Fakes/FakeUserDefaults.h"
#include "Fakes/FakeWidgetCenter.h"
#include "Fakes/ManualClock.h"
#include "Fakes/ManualPower.h"
#include "Fakes/ManualRunLoop.h"
#include "Fakes/ManualWallClock.h"
#include "Fakes/SequentialIdentifiers.h"
#include "Fakes/VideosFixture.h"

#include <QtCore/QTemporaryDir>

namespace tomcatto {

/// All services over clocks that a test moves by hand, with a store of their own and texts in English.
class ServicesFixture
{
public:
    explicit ServicesFixture(const QString &language = QStringLiteral("en"))
    {
        dependencies.settings.setSelectedLanguage(fromRawValue<SelectedLanguage>(language).value());
        dependencies.languageOverrideService.setLanguage(fromRawValue<SelectedLanguage>(language).value());
    }

    /// Lets time pass: all clocks and the run loop move together.
    void pass(std::chrono::milliseconds span)
    {
        runLoop.advance(span, [this](std::chrono::milliseconds step) {
            clock.advance(step);
            wallClock.advance(step);
        });
    }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    ManualClock clock;
    ManualWallClock wallClock;
    ManualRunLoop runLoop;
    SequentialIdentifiers identifiers;
    ManualPower power;
    std::shared_ptr<PathBookmarks> bookmarks = std::make_shared<PathBookmarks>();
    TextStillFrame stillFrame;
    FakeLoginItem loginItem;
    FakeHttpSession http;
    FakeWidgetCenter widgetCenter;
    FileWatch fileWatch;
    FakeNotificationCenter notificationCenter;
    FakeSounds sounds;
    FakeAlert alert;
    FakeSystemSettings systemSettings;
    FakeNotificationProbe probe;
    FakeHotKeys hotKeys;
    FakeSurroundings surroundings{runLoop};
    DesktopServices desktop{{}, alert, systemSettings, probe, hotKeys, surroundings.ports()};
    AppDependencies dependencies{PlatformServices{clock,
                                                  wallClock,
                                                  runLoop,
                                                  fileWatch,
                                                  identifiers,
                                                  defaults,
                                                  power,
                                                  widgetCenter,
                                                  notificationCenter,
                                                  sounds,
                                                  bookmarks,
                                                  stillFrame,
                                                  loginItem,
                                                  http,
                                                  folder.path(),
                                                  folder.filePath(QStringLiteral("widget-snapshot.json")),
                                                  folder.path(),
                                                  {},
                                                  &desktop}};
};

}
