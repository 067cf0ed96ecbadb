#include "Fakes/MenuBarFixture.h"
#include "MenuBar/MenubarPanelViewModel.h"

#include <gtest/gtest.h>
#include <QtTest/QSignalSpy>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

struct Panel : MenuBarFixture
{
    PopoverNavigationStore navigation;
    MainWindowRouter router;
    MenubarPanelViewModel model{services, navigation, router};
};

struct StateCase
{
    const char *name;
    std::function<void(Panel &)> reach;
    const char *theme;
    const char *phaseName;
    const char *time;
    const char *headline;
    const char *caption;
    const char *primary;
    const char *primarySymbol;
    /// Letters of what may be pressed or shows: r reset, s skip, t take break in its place, e extend.
    const char *controls;
    /// The strip: done / rounds, + with a current one.
    const char *rounds;
    const char *dial;
};

/// Starts a phase and lets seconds pass.
auto run(int seconds)
{
    return [seconds](Panel &panel) {
        panel.machine.start();
        panel.pass(std::chrono::seconds(seconds));
    };
}
const auto startWithOverflow = [](Panel &panel) {
    panel.settings.setOverflowEnabled(true);
    panel.machine.start();
    panel.pass(1500s + 161s);
};
const auto pendingBreak = [](Panel &panel) {
    panel.settings.setAutoStartBreaks(false);
    panel.machine.start();
    panel.pass(1500s);
};

const auto heldBreak = [](Panel &panel) {
    panel.turnOn({Panel::Key::waitsDuringCalls});
    panel.machine.start();
    panel.tell(panel.surroundings.call, Fact::yes);
    panel.pass(1500s);
};
/// Gone from 8:58 on for ten minutes, and back.
const auto afterAway = [](Panel &panel) {
    panel.turnOn({Panel::Key::pausesWhenAway});
    panel.machine.start();
    panel.pass(600s);
    panel.tell(panel.surroundings.idle, Fact::yes);
    panel.pass(300s);
    panel.tell(panel.surroundings.idle, Fact::no);
};

const StateCase states[] = {
    {"idle", [](Panel &) {}, "idle", "Focus", "25:00", "Tomcatto", "Classic rhythm", "Start focus", "play.fill", "",
     "0/4+", "Focus, 25 minutes planned"},
    {"own rhythm", [](Panel &panel) { panel.settings.setWorkDurationSeconds(3700); }, "idle", "Focus", "61:40",
     "Tomcatto", "Your own rhythm", "Start focus", "play.fill", "", "0/4+",
     "Focus, 1 hour 1 minute 40 seconds planned"},
    {"working", run(528), "work", "Focus", "16:12", "until 09:18", "", "Pause", "pause.fill", "rse", "0/4+",
     "Focus, 16 minutes 12 seconds left"},
    {"paused",
     [](Panel &panel) {
         run(528)(panel);
         panel.machine.pause();
         panel.pass(60s);
     },
     "work", "Focus, paused", "16:12", "Tomcatto", "", "Resume", "play.fill", "rse", "0/4+",
     "Focus, paused, 16 minutes 12 seconds left"},
    {"short break", run(1602), "shortBreak", "Short break", "03:18", "until 09:23", "", "Pause", "pause.fill", "rse",
     "1/4", "Short break, 3 minutes 18 seconds left"},
    {"pending break", pendingBreak, "shortBreak", "Break ready", "05:00", "Tomcatto", "Take your time", "Start break",
     "cup.and.saucer.fill", "rs", "1/4", "Break ready, 5 minutes, waiting to be started"},
    {"held break", heldBreak, "shortBreak", "Break ready", "05:00", "Tomcatto", "It waits until the call is over.",
     "Start break", "cup.and.saucer.fill", "rs", "1/4", "Break ready, 5 minutes, waiting to be started"},
    {"after being away", afterAway, "work", "Focus, paused", "15:00", "Away since 08:58", "", "Resume", "play.fill",
     "rste", "0/4+", "Focus, paused, 15 minutes left"},
    {"pending focus",
     [](Panel &panel) {
         panel.settings.setAutoStartFocus(false);
         run(1800)(panel);
     },
     "work", "Focus ready", "25:00", "Tomcatto", "Take your time", "Start focus", "play.fill", "rs", "1/4+",
     "Focus ready, 25 minutes, waiting to be started"},
    {"overtime", startWithOverflow, "overtime", "Overtime", "+02:41", "25 min done", "", "Pause", "pause.fill", "rste",
     "0/4+", "Overtime, 2 minutes 41 seconds past the end"},
    {"overtime paused",
     [](Panel &panel) {
         startWithOverflow(panel);
         panel.machine.pause();
     },
     "overtime", "Overtime, paused", "+02:41", "25 min done", "", "Resume", "play.fill", "rste", "0/4+",
     "Overtime, paused, 2 minutes 41 seconds past the end"},
    {"long break",
     [](Panel &panel) {
         panel.settings.setCyclesBeforeLongBreak(1);
         run(1501)(panel);
     },
     "longBreak", "Long break", "14:59", "until 09:33", "", "Pause", "pause.fill", "rse", "1/1",
     "Long break, 14 minutes 59 seconds left"},
};

class PanelStates : public testing::TestWithParam<StateCase>
{
};

TEST_P(PanelStates, AreWordedAndOffered)
{
    const StateCase &expected = GetParam();
    Panel panel;
    expected.reach(panel);
    panel.runLoop.drain();
    const PanelPhase &phase = panel.model.phase();
    const PanelStrip &strip = panel.model.strip();
    EXPECT_EQ(phase.theme, QLatin1String(expected.theme));
    EXPECT_EQ(phase.name, QLatin1String(expected.phaseName));
    EXPECT_EQ(panel.model.clock().text, QLatin1String(expected.time));
    EXPECT_EQ(phase.headline, QLatin1String(expected.headline));
    EXPECT_EQ(phase.caption, QLatin1String(expected.caption));
    EXPECT_EQ(phase.primaryText, QLatin1String(expected.primary));
    EXPECT_EQ(phase.primarySymbol, QLatin1String(expected.primarySymbol));
    const QString controls = QString(phase.canReset ? u"r"_qs : QString()) + (phase.canSkip ? u"s"_qs : QString()) +
                             (phase.showsTakeBreak ? u"t"_qs : QString()) + (phase.showsExtend ? u"e"_qs : QString());
    EXPECT_EQ(controls, QLatin1String(expected.controls));
    const QString rounds =
        u"%1/%2%3"_qs.arg(strip.roundsDone).arg(strip.rounds).arg(strip.isRoundCurrent ? u"+"_qs : QString());
    EXPECT_EQ(rounds, QLatin1String(expected.rounds));
    EXPECT_EQ(panel.model.clock().name, QLatin1String(expected.dial));
}

INSTANTIATE_TEST_SUITE_P(Panel, PanelStates, testing::ValuesIn(states), [](const auto &row) {
    return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString();
});

TEST(MenubarPanelViewModel, PrimaryGoesThroughAllItsMeanings)
{
    Panel panel;
    panel.settings.setAutoStartBreaks(false);
    panel.settings.setAutoStartFocus(false);
    panel.model.primary();
    EXPECT_EQ(panel.machine.currentPhase(), PomodoroPhase::working);
    panel.model.primary();
    EXPECT_TRUE(panel.machine.isPaused());
    panel.model.primary();
    EXPECT_FALSE(panel.machine.isPaused());
    panel.pass(1500s);
    ASSERT_TRUE(panel.machine.isPhasePending());
    panel.model.primary();
    EXPECT_EQ(panel.machine.currentPhase(), PomodoroPhase::shortBreak);
    EXPECT_FALSE(panel.machine.isPhasePending());
    panel.pass(300s);
    ASSERT_TRUE(panel.machine.isPhasePending());
    panel.model.primary();
    EXPECT_EQ(panel.machine.currentPhase(), PomodoroPhase::working);
    EXPECT_FALSE(panel.machine.isPaused());
}

TEST(MenubarPanelViewModel, AfterBeingAwayItIsSaidAndThePhaseGoesOnOrEnds)
{
    for (const bool resumes : {true, false}) {
        Panel panel;
        afterAway(panel);
        ASSERT_TRUE(panel.model.phase().wasAway);
        EXPECT_EQ(panel.model.announcement(), u"Away since 08:58"_qs);
        resumes ? panel.model.primary() : panel.model.takeBreak();
        panel.runLoop.drain();
        EXPECT_FALSE(panel.machine.isPaused());
        EXPECT_EQ(panel.machine.currentPhase(), resumes ? PomodoroPhase::working : PomodoroPhase::shortBreak);
        EXPECT_FALSE(panel.model.phase().wasAway);
    }
}

TEST(MenubarPanelViewModel, TheClockHasTheSystemsFormInEveryLanguage)
{
    Panel panel;
    panel.wallClock.setCalendar({QTimeZone::utc(), Qt::Monday, u"h:mm AP"_qs});
    panel.language.setLanguage(SelectedLanguage::de);
    run(528)(panel);
    EXPECT_EQ(panel.model.phase().headline, u"bis 9:18 AM"_qs);
}

TEST(MenubarPanelViewModel, OneTurnOfTheLoopIsOneUpdateAndTicksLeaveTheRestAlone)
{
    Panel panel;
    QSignalSpy phases(&panel.model, &MenubarPanelViewModel::phaseChanged);
    QSignalSpy clocks(&panel.model, &MenubarPanelViewModel::clockChanged);
    panel.machine.start();
    panel.machine.pause();
    panel.machine.resume();
    EXPECT_EQ(phases.count(), 0) << "nothing inside the operation";
    panel.runLoop.drain();
    EXPECT_EQ(phases.count(), 1);
    clocks.clear();
    panel.pass(10s);
    EXPECT_EQ(clocks.count(), 10);
    EXPECT_EQ(phases.count(), 1);
}

TEST(MenubarPanelViewModel, AnnouncesPhasesAndTheLastMinuteButNotTheSeconds)
{
    Panel panel;
    QSignalSpy announcements(&panel.model, &MenubarPanelViewModel::announcementChanged);
    panel.machine.start();
    panel.pass(1439s);
    const auto before = announcements.count();
    EXPECT_EQ(before, 1) << "the start";
    panel.pass(1s);
    EXPECT_EQ(announcements.count(), before + 1);
    EXPECT_EQ(panel.model.announcement(), u"Focus, 1 minute left"_qs);
    panel.pass(59s);
    EXPECT_EQ(announcements.count(), before + 1);
    panel.pass(1s);
    EXPECT_TRUE(panel.model.announcement().startsWith(u"Short break"_qs));
}

TEST(MenubarPanelViewModel, StripFollowsTheHistoryAndTheSettings)
{
    Panel panel;
    EXPECT_EQ(panel.model.strip().goalCount + panel.model.strip().goalRest, u"0 / 8"_qs);
    panel.machine.start();
    panel.pass(1500s);
    panel.history.stamps.push_back({panel.wallClock.now() - Seconds(1500), 1500});
    panel.history.announceAddition();
    panel.runLoop.drain();
    EXPECT_EQ(panel.model.strip().goalCount, u"1"_qs);
    EXPECT_EQ(panel.model.strip().streakName, u"Days in a row: 1"_qs);
    panel.settings.setDailyGoalPomodoros(3);
    panel.settings.setCyclesBeforeLongBreak(12);
    panel.runLoop.drain();
    EXPECT_EQ(panel.model.strip().goalRest, u" / 3"_qs);
    EXPECT_EQ(panel.model.strip().roundCompact, u"1 / 12"_qs);
    panel.wallClock.advance(24h);
    panel.wallClock.announceDay();
    EXPECT_EQ(panel.model.strip().goalCount, u"0"_qs);
}

}
}
