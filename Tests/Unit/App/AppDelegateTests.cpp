#include "App/AppDelegate.h"
#include "Composition/TimerCommands.h"
#include "Fakes/ServicesFixture.h"

#include <bitset>
#include <gtest/gtest.h>
#include <QtTest/QSignalSpy>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

/// The application without its process, which notes what is asked of its surfaces.
class Application final : public ServicesFixture, public ApplicationSurfaces
{
public:
    void prepare() override { steps << QStringLiteral("prepare"); }
    void install() override { steps << QStringLiteral("install"); }
    void revealPopover() override { steps << QStringLiteral("reveal"); }
    void showOnboardingIfNeeded() override { steps << QStringLiteral("onboarding"); }

    void store(double daysAgo)
    {
        PomodoroSessionInsertRequest request;
        request.id = identifiers.next();
        request.phase = PomodoroPhase::working;
        request.startedAt = wallClock.now() - Seconds(daysAgo * 86'400);
        request.wasCompleted = true;
        dependencies.sessionRepository.insert(request, InsertMode::synchronous);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] std::size_t records() const { return dependencies.sessionRepository.allSessions().size(); }

    [[nodiscard]] StatusSource::Parts statusParts()
    {
        return {dependencies.stateMachine,
                dependencies.timer,
                dependencies.settings,
                dependencies.statsAggregator,
                dependencies.manners,
                dependencies.strings,
                wallClock,
                runLoop};
    }

    QStringList steps;
    AppDelegate delegate{dependencies};
};

}

TEST(AppDelegate, StartsInOrderAndOpensThePanelOnlyTheFirstTimeAfterOnboarding)
{
    // Onboarded, opened before, started by the system, driven by a test.
    constexpr int conditions = 4;
    for (unsigned number = 0; number < 1U << conditions; ++number) {
        SCOPED_TRACE(number);
        const std::bitset<conditions> is(number);
        const bool reveals = number == 1;
        Application application;
        application.dependencies.settings.setHasCompletedOnboarding(is[0]);
        if (is[1])
            application.defaults.setValue(QStringLiteral("didRevealPopover"), true);
        application.delegate.applicationWillFinishLaunching({.isBackground = is[2], .isUiTest = is[3]});
        application.delegate.applicationDidFinishLaunching(application);
        const QString reveal = reveals ? QStringLiteral("reveal ") : QString();
        EXPECT_EQ(application.steps.join(u' '), QStringLiteral("prepare install %1onboarding").arg(reveal));
        EXPECT_EQ(application.defaults.stored.contains(QStringLiteral("didRevealPopover")), reveals || is[1]);
    }
}

TEST(AppDelegate, StartRecoversAndPrunesWhatIsOlderThanACentury)
{
    Application application;
    application.store(36'499);
    application.store(36'501);
    application.defaults.setValue(
        QStringLiteral("inFlightSession"),
        QByteArray(R"({"phase":"work","startedAt":1759999000,"plannedDurationSeconds":1500,"cycleIndex":0})"));
    application.delegate.applicationDidFinishLaunching(application);
    application.dependencies.coreDataStack.save();
    EXPECT_EQ(application.records(), 2U) << "the younger one and the one that was left";
}

TEST(AppDelegate, WhatEndsOrSleepsIsOnDiskInOrder)
{
    Application application;
    application.delegate.applicationDidFinishLaunching(application);
    PomodoroStateMachine &machine = application.dependencies.stateMachine;
    std::vector<std::pair<std::size_t, QByteArray>> written;
    application.defaults.onSynchronize = [&] {
        const auto marker = application.dependencies.inFlightStore.load();
        written.emplace_back(application.records(), marker ? encoded(*marker) : QByteArray());
    };
    machine.start();
    machine.skip();
    EXPECT_EQ(application.sounds.log.join(u' '), QStringLiteral("rewind Pop play Pop rewind Glass play Glass"));
    application.pass(7s);
    application.delegate.applicationMayTerminate();
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::shortBreak) << "a session may go on after all";
    application.power.sleep();
    EXPECT_TRUE(machine.isPaused());
    machine.reset();
    machine.start();
    application.delegate.applicationWillTerminate();
    ASSERT_EQ(written.size(), 3U);
    EXPECT_EQ(written[0].first, 1U);
    EXPECT_TRUE(written[0].second.contains("lastActiveAt"));
    EXPECT_TRUE(written[1].second.contains("pausedAt"));
    EXPECT_EQ(written[2], (std::pair<std::size_t, QByteArray>(3, ""))) << "records first, then no marker";
}

TEST(AppDelegate, NeitherSleepNorGoodMannersGoOnAgainstTheOther)
{
    struct Case
    {
        const char *name;
        bool locksBefore;
        bool locksMeanwhile;
        std::chrono::seconds sleep;
        bool isPaused;
        bool isOffered;
    };
    const Case cases[] = {
        {"short", false, false, 30s, false, false},          {"long", false, false, 90s, true, false},
        {"locked before", true, false, 30s, true, true},     {"locked before, long", true, false, 90s, true, true},
        {"locked on the way", false, true, 30s, true, true}, {"locked on the way, long", false, true, 90s, true, true},
    };
    for (const Case &item : cases) {
        Application application;
        MannersService &manners = application.dependencies.manners;
        PomodoroStateMachine &machine = application.dependencies.stateMachine;
        application.delegate.applicationDidFinishLaunching(application);
        manners.settings().setValue(MannersSettings::Key::pausesWhenAway, 1);
        const auto lock = [&application](bool when, Fact fact) {
            if (when)
                application.surroundings.lock.become(fact);
            application.runLoop.drain();
        };
        machine.start();
        application.pass(10s);
        lock(item.locksBefore, Fact::yes);
        application.power.sleep();
        lock(item.locksMeanwhile, Fact::yes);
        application.clock.advance(item.sleep);
        application.wallClock.advance(item.sleep);
        application.power.wake();
        application.runLoop.drain();
        EXPECT_EQ(machine.isPaused(), item.isPaused) << item.name;
        EXPECT_FALSE(manners.awaySince()) << item.name;
        lock(true, Fact::no);
        EXPECT_EQ(machine.isPaused(), item.isPaused) << item.name;
        EXPECT_EQ(manners.awaySince().has_value(), item.isOffered) << item.name;
        EXPECT_EQ(application.surroundings.lock.isWatched(), !item.isPaused) << item.name;
        EXPECT_EQ(application.notificationCenter.requests.size(), item.isOffered ? 1U : 0U) << item.name;
    }
}

TEST(AppDelegate, ABreakThatIsHeldIsSilentUntilItBegins)
{
    Application application;
    AppDependencies &dependencies = application.dependencies;
    application.delegate.applicationDidFinishLaunching(application);
    dependencies.manners.settings().setValue(MannersSettings::Key::waitsDuringCalls, 1);
    application.surroundings.call.become(Fact::yes);
    const StatusSource source(application.statusParts());
    std::vector<std::optional<HoldReason>> told;
    QObject::connect(&source, &StatusSource::changed, &source,
                     [&told](const TimerStatus &status) { told.push_back(status.heldBy); });
    dependencies.stateMachine.start();
    application.pass(1500s);
    EXPECT_FALSE(application.sounds.log.contains(QStringLiteral("play Glass")));
    application.surroundings.fullScreen.become(Fact::yes);
    dependencies.manners.settings().setValue(MannersSettings::Key::waitsInFullScreen, 1);
    application.surroundings.call.become(Fact::no);
    application.pass(15s);
    EXPECT_FALSE(application.sounds.log.contains(QStringLiteral("play Glass")));
    application.surroundings.fullScreen.become(Fact::no);
    application.pass(1s);
    EXPECT_TRUE(application.sounds.log.contains(QStringLiteral("play Glass")));
    EXPECT_EQ(told,
              (std::vector<std::optional<HoldReason>>{{}, HoldReason::call, HoldReason::fullScreen, std::nullopt}));
}

TEST(AppDelegate, ALanguageIsAnnouncedOnceFromEitherSide)
{
    Application application;
    PomodoroSettings &settings = application.dependencies.settings;
    LanguageOverrideService &service = application.dependencies.languageOverrideService;
    const QSignalSpy announced(&service, &LanguageOverrideService::languageDidChange);
    const QSignalSpy changed(&settings, &PomodoroSettings::changed);
    settings.setSelectedLanguage(SelectedLanguage::de);
    EXPECT_EQ(service.currentLanguage(), SelectedLanguage::de);
    service.setLanguage(SelectedLanguage::fr);
    EXPECT_EQ(settings.selectedLanguage(), SelectedLanguage::fr);
    EXPECT_EQ(announced.count(), 2);
    EXPECT_EQ(changed.count(), 2);
}

TEST(TimerCommands, TheStatusFollowsTheDayAndAWaitingPhaseIsStarted)
{
    Application application;
    AppDependencies &dependencies = application.dependencies;
    const StatusSource source(application.statusParts());
    std::vector<qint64> today;
    QObject::connect(&source, &StatusSource::changed, &source,
                     [&today](const TimerStatus &status) { today.push_back(status.todayCompleted); });
    application.store(0);
    application.wallClock.advance(16h);
    application.wallClock.announceDay();
    application.runLoop.drain();
    // The zone changes to one where the day is still the old one.
    application.wallClock.setCalendar({QTimeZone("America/New_York"), Qt::Sunday});
    application.wallClock.announceDay();
    application.runLoop.drain();
    EXPECT_EQ(today, (std::vector<qint64>{0, 1}));

    CommandTable commands;
    addTimerCommands(commands, dependencies.stateMachine, source);
    dependencies.settings.setAutoStartBreaks(false);
    dependencies.stateMachine.start();
    application.pass(1500s);
    for (const ExitStatus expected : {ExitStatus::done, ExitStatus::notApplicable}) {
        EXPECT_EQ(dependencies.stateMachine.isPhasePending(), expected == ExitStatus::done);
        commands.run(QStringLiteral("start"), {},
                     [expected](const ControlReply &reply) { EXPECT_EQ(reply.status, expected); });
    }
}
