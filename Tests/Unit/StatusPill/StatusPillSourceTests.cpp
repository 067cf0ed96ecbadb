#include "Fakes/EngineFixture.h"
#include "StatusPill/StatusPillSource.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

struct PillState
{
    const char *name;
    std::function<void(EngineFixture &)> reach;
    const char *title;
    StatusPillTone tone;
    double progress;
    bool isPaused = false;
    bool breakReady = false;
};

void run(EngineFixture &engine, std::chrono::seconds span)
{
    engine.machine.start();
    engine.pass(span);
}

const PillState states[] = {
    {"idle", [](EngineFixture &) {}, "25:00", StatusPillTone::idle, 0},
    {"idle_long", [](EngineFixture &engine) { engine.settings.setWorkDurationSeconds(7505); }, "125:05",
     StatusPillTone::idle, 0},
    {"work", [](EngineFixture &engine) { run(engine, 375s); }, "18:45", StatusPillTone::work, 0.25},
    {"extended",
     [](EngineFixture &engine) {
         run(engine, 900s);
         engine.machine.extend(300);
     },
     "15:00", StatusPillTone::work, 0.5},
    {"paused",
     [](EngineFixture &engine) {
         run(engine, 750s);
         engine.machine.pause();
         engine.pass(60s);
     },
     "12:30", StatusPillTone::work, 0.5, true},
    {"overtime",
     [](EngineFixture &engine) {
         engine.settings.setOverflowEnabled(true);
         run(engine, 1561s);
     },
     "+01:01", StatusPillTone::overtime, 1},
    {"overtime_paused",
     [](EngineFixture &engine) {
         engine.settings.setOverflowEnabled(true);
         run(engine, 1505s);
         engine.machine.pause();
     },
     "+00:05", StatusPillTone::overtime, 1, true},
    {"short_break", [](EngineFixture &engine) { run(engine, 1575s); }, "03:45", StatusPillTone::shortBreak, 0.25},
    {"long_break",
     [](EngineFixture &engine) {
         engine.settings.setCyclesBeforeLongBreak(1);
         run(engine, 1500s);
     },
     "15:00", StatusPillTone::longBreak, 0},
    {"break_ready",
     [](EngineFixture &engine) {
         engine.settings.setAutoStartBreaks(false);
         run(engine, 1600s);
     },
     "Ready", StatusPillTone::shortBreak, 0, true, true},
    {"work_pending",
     [](EngineFixture &engine) {
         engine.settings.setAutoStartFocus(false);
         run(engine, 1900s);
     },
     "25:00", StatusPillTone::work, 0, true},
    {"stalled",
     [](EngineFixture &engine) {
         run(engine, 0s);
         engine.stall(1800s);
     },
     "25:00", StatusPillTone::work, 0}};

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
    expected.reach(engine);
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

TEST(ClockText, HasNoHoursAndNoMinus)
{
    for (const auto &[seconds, text] :
         {std::pair<qint64, const char *>{-1, "00:00"}, {0, "00:00"}, {59, "00:59"}, {3600, "60:00"}, {7500, "125:00"}})
        EXPECT_EQ(clockText(seconds), QLatin1String(text));
}

}
}
