#include "Fakes/EngineFixture.h"
#include "StatusPill/StatusPillSource.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

using enum StatusPillTone;
using Settings = PomodoroSettings;
using Machine = PomodoroStateMachine;

struct PillState
{
    const char *name;
    std::function<void(Settings &)> prepare;
    /// How long it has run; nothing at rest.
    std::chrono::seconds span;
    std::function<void(Machine &)> operate;
    const char *title;
    StatusPillTone tone;
    double progress;
    bool isPaused = false;
    bool breakReady = false;
};

const auto asIs = [](const auto &) {};
const auto overflowing = [](Settings &settings) { settings.setOverflowEnabled(true); };
const auto pause = [](Machine &machine) { machine.pause(); };

const PillState states[] = {
    {"idle", asIs, 0s, asIs, "25:00", idle, 0},
    {"idle_long", [](Settings &settings) { settings.setWorkDurationSeconds(7505); }, 0s, asIs, "125:05", idle, 0},
    {"work", asIs, 375s, asIs, "18:45", work, 0.25},
    {"extended", asIs, 900s, [](Machine &machine) { machine.extend(300); }, "15:00", work, 0.5},
    {"paused", asIs, 750s, pause, "12:30", work, 0.5, true},
    {"overtime", overflowing, 1561s, asIs, "+01:01", overtime, 1},
    {"overtime_paused", overflowing, 1505s, pause, "+00:05", overtime, 1, true},
    {"short_break", asIs, 1575s, asIs, "03:45", shortBreak, 0.25},
    {"long_break", [](Settings &settings) { settings.setCyclesBeforeLongBreak(1); }, 1500s, asIs, "15:00", longBreak,
     0},
    {"ready", [](Settings &settings) { settings.setAutoStartBreaks(false); }, 1600s, asIs, "Ready", shortBreak, 0, true,
     true},
    {"work_pending", [](Settings &settings) { settings.setAutoStartFocus(false); }, 1900s, asIs, "25:00", work, 0,
     true}};

class PillStates : public testing::TestWithParam<PillState>
{
};

TEST_P(PillStates, SayWhatTheTimerDoes)
{
    const PillState &expected = GetParam();
    EngineFixture engine;
    engine.settings.setOverflowEnabled(false);
    const LanguageOverrideService language(engine.defaults, {QStringLiteral("en")});
    const LocalizedStrings strings(language);
    const StatusPillSource source(engine.machine, engine.timer, engine.settings, strings);
    expected.prepare(engine.settings);
    if (expected.span > 0s)
        engine.machine.start();
    engine.pass(expected.span);
    expected.operate(engine.machine);
    EXPECT_EQ(source.content(true),
              (StatusPillContent{MenuBarStyle::countdown, QLatin1String(expected.title), expected.tone,
                                 expected.progress, expected.isPaused, expected.breakReady, true}));
    engine.settings.setMenuBarStyle(MenuBarStyle::iconOnly);
    const StatusPillContent icon = source.content(false);
    EXPECT_EQ(icon.style, MenuBarStyle::iconOnly);
    EXPECT_EQ(icon.title, QLatin1String(expected.title)) << "the tooltip's";
    EXPECT_FALSE(icon.isDarkBar);
}

INSTANTIATE_TEST_SUITE_P(StatusPill, PillStates, testing::ValuesIn(states),
                         [](const auto &row) { return std::string(row.param.name); });

}
}
