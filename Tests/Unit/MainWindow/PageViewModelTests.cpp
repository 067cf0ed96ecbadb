#include "Fakes/MainWindowFixture.h"
#include "Localization/DurationText.h"

#include <gtest/gtest.h>
#include <QtTest/QSignalSpy>

namespace tomcatto {

namespace {

QString field(const QVariantList &rows, int index, const char *name)
{
    return rows.at(index).toMap().value(QString::fromLatin1(name)).toString();
}

QVariantMap permission(const MainWindowFixture &fixture, const QString &id)
{
    for (const QVariant &row : fixture.permissions.rows()) {
        if (row.toMap().value(QStringLiteral("id")) == id)
            return row.toMap();
    }
    return {};
}

}

TEST(GoodManners, TheRowOfBeingAwaySaysWhatIsNotTold)
{
    for (const auto &[idle, lock, isTold, help] :
         {std::tuple{Fact::no, Fact::yes, true, "When keys and mouse rest for a while, or the screen locks."},
          {Fact::untold, Fact::no, true, "When the screen locks. Resting keys and mouse are not told here."},
          {Fact::no, Fact::untold, true, "When keys and mouse rest for a while. The screen lock is not told here."},
          {Fact::untold, Fact::untold, false, "This desktop does not tell when you are away."}}) {
        MainWindowFixture fixture;
        fixture.surroundings.idle.become(idle);
        fixture.surroundings.lock.become(lock);
        fixture.manners.appear();
        fixture.engine.runLoop.drain();
        EXPECT_EQ(field(fixture.manners.rows(), 2, "help"), QString::fromLatin1(help));
        fixture.manners.setOn(QStringLiteral("pausesWhenAway"), true);
        EXPECT_EQ(fixture.mannersSettings.isOn(MannersSettings::Key::pausesWhenAway), isTold);
    }
}

TEST(DurationText, NamesHoursMinutesAndSeconds)
{
    const MainWindowFixture fixture;
    for (const auto &[seconds, plain, exact] : {std::tuple{-5, "0 min", "0 min"},
                                                {0, "0 min", "0 min"},
                                                {5, "5 s", "5 s"},
                                                {60, "1 min", "1 min"},
                                                {90, "1 min", "1 min 30 s"},
                                                {3600, "1 h", "1 h"},
                                                {7800, "2 h 10 min", "2 h 10 min"}}) {
        EXPECT_EQ(durationText(fixture.strings, seconds), QString::fromLatin1(plain)) << seconds;
        EXPECT_EQ(durationText(fixture.strings, seconds, true), QString::fromLatin1(exact)) << seconds;
    }
}

TEST(TimerPage, TakesValuesToTheBoundsOfItsControls)
{
    MainWindowFixture fixture;
    const PomodoroSettings &settings = fixture.engine.settings;
    for (const auto &[asked, minutes, rounds, goal] : {std::tuple{-3, 1, 1, 1},
                                                       {0, 1, 1, 1},
                                                       {1, 1, 1, 1},
                                                       {12, 12, 12, 12},
                                                       {25, 25, 12, 24},
                                                       {181, 180, 12, 24}}) {
        for (const auto *const id : {"work", "shortBreak", "longBreak"})
            fixture.timer.setMinutes(QString::fromLatin1(id), asked);
        fixture.timer.setRounds(asked);
        fixture.timer.setGoal(asked);
        EXPECT_EQ(settings.workDurationSeconds(), 60 * minutes);
        EXPECT_EQ(settings.shortBreakDurationSeconds(), 60 * minutes);
        EXPECT_EQ(settings.longBreakDurationSeconds(), 60 * minutes);
        EXPECT_EQ(settings.cyclesBeforeLongBreak(), rounds);
        EXPECT_EQ(settings.dailyGoalPomodoros(), goal);
    }
}

TEST(TimerPage, DurationInSecondsStaysUntilItsControlIsMoved)
{
    MainWindowFixture fixture;
    PomodoroSettings &settings = fixture.engine.settings;
    settings.setWorkDurationSeconds(5);
    settings.setShortBreakDurationSeconds(150);

    EXPECT_EQ(field(fixture.timer.durations(), 0, "minutes"), QStringLiteral("1"));
    EXPECT_EQ(field(fixture.timer.durations(), 0, "text"), QStringLiteral("5 s"));
    EXPECT_EQ(field(fixture.timer.durations(), 1, "text"), QStringLiteral("2 min 30 s"));
    fixture.timer.setMinutes(QStringLiteral("longBreak"), 20);
    EXPECT_EQ(settings.workDurationSeconds(), 5);
    EXPECT_EQ(settings.shortBreakDurationSeconds(), 150);
    fixture.timer.setMinutes(QStringLiteral("work"), 2);
    EXPECT_EQ(settings.workDurationSeconds(), 120);
}

TEST(TimerPage, CustomBringsBackTheLastMix)
{
    MainWindowFixture fixture;
    PomodoroSettings &settings = fixture.engine.settings;
    EXPECT_EQ(fixture.timer.preset(), QStringLiteral("classic"));
    const QSignalSpy wanted(&fixture.timer, &TimerPageViewModel::controlsWanted);
    fixture.timer.choosePreset(QStringLiteral("custom"));
    EXPECT_EQ(wanted.size(), 1) << "there is no mix yet";

    settings.setWorkDurationSeconds(5);
    EXPECT_EQ(fixture.timer.preset(), QStringLiteral("custom"));
    fixture.timer.choosePreset(QStringLiteral("deep"));
    EXPECT_EQ(fixture.timer.preset(), QStringLiteral("deep"));
    EXPECT_EQ(settings.cyclesBeforeLongBreak(), 4);
    fixture.timer.choosePreset(QStringLiteral("custom"));
    EXPECT_EQ(wanted.size(), 1) << "it was brought back";
    EXPECT_EQ(settings.workDurationSeconds(), 5);
    EXPECT_EQ(settings.longBreakDurationSeconds(), 900);
}

TEST(TimerPage, DrawsOneSetAndTellsItsLength)
{
    MainWindowFixture fixture;
    EXPECT_EQ(fixture.timer.set().size(), 8);
    EXPECT_EQ(field(fixture.timer.set(), 6, "phase"), QStringLiteral("work"));
    EXPECT_EQ(field(fixture.timer.set(), 7, "phase"), QStringLiteral("longBreak"));
    EXPECT_EQ(fixture.timer.setText(), QStringLiteral("2 h 10 min"));
    fixture.timer.setRounds(1);
    EXPECT_EQ(fixture.timer.setText(), QStringLiteral("40 min"));
    EXPECT_EQ(fixture.timer.goalHelp(), QStringLiteral("8 focus phases, about 3 h 20 min"));
}

TEST(GeneralPage, TakesOnlyChoicesThatThereAre)
{
    MainWindowFixture fixture;
    const PomodoroSettings &settings = fixture.engine.settings;
    fixture.general.chooseMenuBarStyle(0);
    EXPECT_EQ(settings.menuBarStyle(), MenuBarStyle::iconOnly);
    fixture.general.chooseTheme(3);
    fixture.general.chooseLanguage(-1);
    EXPECT_EQ(settings.themePreference(), ThemePreference::system);
    EXPECT_EQ(settings.selectedLanguage(), SelectedLanguage::en);
    fixture.general.chooseLanguage(0);
    EXPECT_EQ(fixture.general.languages().first(), QStringLiteral("System (English)"));
}

TEST(GeneralPage, NotificationsNeedThePermissionToo)
{
    MainWindowFixture fixture;
    for (const auto &[permission, isOn, isBlocked] : {std::tuple{NotificationPermission::notDetermined, true, false},
                                                      {NotificationPermission::authorised, true, false},
                                                      {NotificationPermission::denied, false, true},
                                                      {NotificationPermission::unavailable, false, true}}) {
        fixture.probe.current.permission = permission;
        fixture.general.refresh();
        EXPECT_EQ(fixture.general.notifications(), isOn);
        EXPECT_EQ(fixture.general.notificationsBlocked(), isBlocked);
    }
    fixture.general.setNotifications(false);
    EXPECT_EQ(fixture.probe.requests, 0);
    fixture.general.setNotifications(true);
    EXPECT_EQ(fixture.probe.requests, 1);
    EXPECT_TRUE(fixture.general.notifications());
}

TEST(GeneralPage, OffersLaunchAtLoginWhereItDoesSomething)
{
    MainWindowFixture fixture;
    fixture.loginItem.current = LoginItemStatus::otherProgram;
    fixture.launchAtLogin.readStatus();
    EXPECT_TRUE(fixture.general.launchAtLoginHelp().startsWith(QStringLiteral("Another copy")));
    EXPECT_TRUE(fixture.general.offersLaunchAtLogin());
    fixture.loginItem.current = LoginItemStatus::unavailable;
    fixture.launchAtLogin.readStatus();
    EXPECT_FALSE(fixture.general.offersLaunchAtLogin()) << "a switch that does nothing";
}

TEST(PermissionsPage, SaysWhatTheDesktopCanDo)
{
    MainWindowFixture fixture;
    fixture.probe.current = {NotificationPermission::authorised, false};
    fixture.permissions.setCapabilities({DesktopSupport::none, DesktopSupport::limited, HotKeySupport::notAsked, true});
    fixture.permissions.refresh();

    const auto expect = [&fixture](const char *id, const char *state, const char *button, bool isGood) {
        const QVariantMap row = permission(fixture, QString::fromLatin1(id));
        EXPECT_EQ(row.value(QStringLiteral("state")).toString(), QString::fromLatin1(state)) << id;
        EXPECT_EQ(row.value(QStringLiteral("button")).toString(), QString::fromLatin1(button)) << id;
        EXPECT_EQ(row.value(QStringLiteral("isGood")).toBool(), isGood) << id;
        EXPECT_FALSE(row.value(QStringLiteral("help")).toString().startsWith(QStringLiteral("window."))) << id;
    };
    expect("notifications", "Allowed", "Try it", true);
    expect("tray", "Not available", "", false);
    expect("overlay", "Limited", "", false);
    expect("hotkeys", "Not asked yet", "Ask now", false);
    expect("launch_at_login", "Off", "General", false);
    for (const auto &[hasActions, server, help] : {std::tuple(false, "", "They come without buttons on this desktop"),
                                                   std::tuple(false, "plain", "plain shows them, without buttons"),
                                                   std::tuple(true, "dunst", "dunst shows them, with buttons")}) {
        fixture.probe.current = {NotificationPermission::authorised, hasActions, QString::fromLatin1(server)};
        fixture.permissions.refresh();
        EXPECT_EQ(permission(fixture, QStringLiteral("notifications")).value(QStringLiteral("help")).toString(),
                  QString::fromLatin1(help));
        EXPECT_EQ(fixture.onboarding.notificationsHelp(), QString::fromLatin1(help));
    }
    const QSignalSpy tests(&fixture.permissions, &PermissionsPageViewModel::testNotificationRequested);
    fixture.permissions.act(QStringLiteral("notifications"));
    EXPECT_EQ(tests.size(), 1);

    EXPECT_EQ(fixture.permissions.rows().size(), 5);
    fixture.permissions.setCapabilities({.hotKeys = HotKeySupport::none, .opensAtLogin = false, .noticesSleep = false});
    for (const char *id : {"hotkeys", "launch_at_login", "sleep"})
        expect(id, "Not available", "", false);

    const auto trayHelp = [&fixture](DesktopSupport tray, bool placesPanel) {
        fixture.permissions.setCapabilities({.tray = tray, .placesPanel = placesPanel});
        return permission(fixture, QStringLiteral("tray")).value(QStringLiteral("help")).toString();
    };
    EXPECT_FALSE(trayHelp(DesktopSupport::full, true).contains(QStringLiteral("desktop decides")));
    for (const DesktopSupport tray : {DesktopSupport::full, DesktopSupport::limited})
        EXPECT_TRUE(trayHelp(tray, false).contains(QStringLiteral("desktop decides")));

    fixture.probe.current.permission = NotificationPermission::denied;
    fixture.permissions.refresh();
    expect("notifications", "Turned off", "Open settings", false);
    fixture.permissions.act(QStringLiteral("notifications"));
    EXPECT_EQ(fixture.systemSettings.notifications, 1);
    fixture.window.show(MainWindowPage::permissions);
    fixture.permissions.act(QStringLiteral("launch_at_login"));
    EXPECT_EQ(fixture.window.currentPage(), MainWindowPage::general);
}

TEST(AboutPage, NamesVersionLicencesAndNews)
{
    MainWindowFixture fixture(SelectedLanguage::de);
    EXPECT_EQ(fixture.about.version(), QStringLiteral("Version 1.0.0"));
    EXPECT_EQ(field(fixture.about.components(), 1, "license"), QStringLiteral("Gemeinfrei"));
    EXPECT_FALSE(fixture.about.whatsNew().isEmpty());
    EXPECT_FALSE(fixture.about.whatsNew().contains(QStringLiteral("## [")));

    QString copied;
    QUrl opened;
    QObject::connect(&fixture.about, &AboutPageViewModel::copyRequested, &fixture.about,
                     [&copied](const QString &text) { copied = text; });
    QObject::connect(&fixture.about, &AboutPageViewModel::linkRequested, &fixture.about,
                     [&opened](const QUrl &address) { opened = address; });
    fixture.about.copyDetails();
    EXPECT_TRUE(copied.startsWith(QStringLiteral("Tomcatto 1.0.0\nQt 6.")));
    EXPECT_TRUE(fixture.about.isCopied());
    for (int index = 0; index < fixture.about.components().size(); ++index) {
        fixture.about.openLicense(index);
        EXPECT_TRUE(opened.isValid() && opened.scheme() == QStringLiteral("https")) << index;
        opened.clear();
    }
    fixture.about.openLicense(99);
    EXPECT_TRUE(opened.isEmpty());
}

}
