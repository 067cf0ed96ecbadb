#include "Fakes/MannersFixture.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;
using enum MannersSettings::Key;

struct Person : MannersFixture
{
    Person() { settings.setWorkDurationSeconds(60); }

    /// The state in words.
    [[nodiscard]] std::string state() const
    {
        QStringList words{rawValue(machine.currentPhase())};
        if (machine.isOverflowing())
            words << QStringLiteral("overtime");
        if (machine.isPaused())
            words << (machine.isPhasePending() ? QStringLiteral("ready") : QStringLiteral("paused"));
        if (const auto heldBy = manners.heldBy())
            words << rawValue(*heldBy);
        if (const auto since = manners.awaySince())
            words << QStringLiteral("away %1").arg((wallClock.now() - *since).count());
        if (manners.isBreakNear())
            words << QStringLiteral("near");
        return words.join(u' ').toStdString();
    }
    [[nodiscard]] bool isWatched() const
    {
        return surroundings.call.isWatched() || surroundings.fullScreen.isWatched() || surroundings.lock.isWatched() ||
               surroundings.idle.isWatched();
    }
};

using Act = std::function<void(Person &)>;
using Acts = std::vector<Act>;

struct Case
{
    const char *name;
    Acts acts;
    const char *state;
};

Act wait(std::chrono::seconds span)
{
    return [span](Person &p) { p.pass(span); };
}
Act on(MannersSettings::Key key, qint64 value = 1)
{
    return [key, value](Person &p) { p.manners.settings().setValue(key, value); };
}
Act tell(FakeFact FakeSurroundings::*source, Fact fact)
{
    return [source, fact](Person &p) { p.tell(p.surroundings.*source, fact); };
}

const Act call = tell(&FakeSurroundings::call, Fact::yes);
const Act hangUp = tell(&FakeSurroundings::call, Fact::no);
const Act callGone = tell(&FakeSurroundings::call, Fact::untold);
const Act film = tell(&FakeSurroundings::fullScreen, Fact::yes);
const Act filmEnds = tell(&FakeSurroundings::fullScreen, Fact::no);
const Act lock = tell(&FakeSurroundings::lock, Fact::yes);
const Act unlock = tell(&FakeSurroundings::lock, Fact::no);
const Act lockGone = tell(&FakeSurroundings::lock, Fact::untold);
const Act rest = tell(&FakeSurroundings::idle, Fact::yes);
const Act touch = tell(&FakeSurroundings::idle, Fact::no);
const Act idleGone = tell(&FakeSurroundings::idle, Fact::untold);
const Act start = [](Person &p) { p.machine.start(); };
const Act hour = [](Person &p) { p.settings.setWorkDurationSeconds(3600); };
const Act due = [](Person &p) { p.machine.start(), p.pass(60s); };
const Act pause = [](Person &p) { p.machine.pause(); };
const Act resume = [](Person &p) { p.machine.resume(); };
const Act skip = [](Person &p) { p.machine.skip(); };
const Act take = [](Person &p) { p.machine.takeBreak(); };
const Act extend = [](Person &p) { p.machine.extend(300); };
const Act reset = [](Person &p) { p.machine.reset(); };
const Act overflow = [](Person &p) { p.settings.setOverflowEnabled(true); };
const Act askBreaks = [](Person &p) { p.settings.setAutoStartBreaks(false); };
const Act askFocus = [](Person &p) { p.settings.setAutoStartFocus(false); };
const Act goOn = [](Person &p) { p.manners.resumeAfterAway(); };
const Act leave = [](Person &p) { p.manners.takeBreakAfterAway(); };

void check(const std::vector<Case> &cases, std::initializer_list<MannersSettings::Key> keys)
{
    for (const Case &item : cases) {
        Person person;
        person.surroundings.idle.become(Fact::yes);
        if (keys.begin()[0] == pausesWhenAway)
            person.surroundings.idle.become(Fact::no);
        person.turnOn(keys);
        for (const Act &act : item.acts)
            act(person);
        EXPECT_EQ(person.state(), item.state) << item.name;
        person.machine.reset();
        person.runLoop.drain();
        EXPECT_FALSE(person.isWatched()) << item.name << ": nothing matters any more";
        EXPECT_EQ(person.runLoop.activeTimers(), 0U) << item.name;
    }
}

TEST(MannersService, HoldsABreakThatIsDueAndLetsItBegin)
{
    check(
        {{"nothing speaks against it", {due}, "shortBreak"},
         {"call", {call, due}, "shortBreak ready call"},
         {"call over, almost", {call, due, hangUp, wait(14s)}, "shortBreak ready call"},
         {"call over", {call, due, hangUp, wait(15s)}, "shortBreak"},
         {"over before it is due", {start, wait(50s), call, hangUp, wait(10s)}, "shortBreak ready call"},
         {"called anew", {call, due, hangUp, wait(14s), call, hangUp, wait(14s)}, "shortBreak ready call"},
         {"sound server gone", {call, due, callGone, wait(14s)}, "shortBreak ready call"},
         {"gone for good", {call, due, callGone, wait(15s)}, "shortBreak"},
         {"gone and back", {call, due, callGone, wait(10s), call, wait(1h)}, "shortBreak ready call"},
         {"film", {film, due}, "shortBreak ready fullScreen"},
         {"films change", {film, due, filmEnds, film, wait(2s)}, "shortBreak ready fullScreen"},
         {"film over", {film, due, filmEnds, wait(1s)}, "shortBreak"},
         {"call before film", {film, call, due}, "shortBreak ready call"},
         {"film after call", {film, call, due, hangUp, wait(15s)}, "shortBreak ready fullScreen"},
         {"call during film", {film, due, call, filmEnds, wait(1h)}, "shortBreak ready call"},
         {"typing", {touch, due}, "shortBreak ready typing"},
         {"typed", {touch, due, rest}, "shortBreak"},
         {"typing on and on", {touch, due, wait(59s)}, "shortBreak ready typing"},
         {"typing too long", {touch, due, wait(60s)}, "shortBreak"},
         {"keyboard gone", {touch, due, idleGone}, "shortBreak"},
         {"nobody tells of keys", {idleGone, due}, "shortBreak"},
         {"typing after call", {touch, call, due, hangUp, wait(74s)}, "shortBreak ready typing"},
         {"too long after call", {touch, call, due, hangUp, wait(75s)}, "shortBreak"},
         {"started", {call, due, take, hangUp, wait(20s)}, "shortBreak"},
         {"skipped", {call, due, skip, hangUp, wait(20s)}, "work"},
         {"reset", {call, due, reset, hangUp, wait(20s)}, "idle"},
         {"extended", {call, due, extend}, "shortBreak ready call"},
         {"break over, paused", {call, due, hangUp, wait(20s), pause, wait(1h)}, "shortBreak paused"},
         {"turned off", {call, due, on(waitsDuringCalls, 0), wait(0s)}, "shortBreak"},
         {"asked for anyway", {askBreaks, call, due}, "shortBreak ready"},
         {"never started then", {askBreaks, call, due, hangUp, wait(1h)}, "shortBreak ready"},
         {"asked for since", {call, due, askBreaks, hangUp, wait(1h)}, "shortBreak ready"},
         {"overtime", {overflow, call, due}, "work overtime"},
         {"overtime, taken", {overflow, call, due, take}, "shortBreak"},
         {"skipped into", {call, start, skip}, "shortBreak"},
         {"paused near the end", {call, start, wait(55s), pause, wait(1h), resume, wait(5s)}, "shortBreak ready call"}},
        {waitsDuringCalls, waitsInFullScreen, finishesSentence});
}

TEST(MannersService, PausesAFocusPhaseThatNobodySitsAt)
{
    check({{"touched", {start, wait(10s)}, "work"},
           {"idle", {hour, start, wait(5min), rest, wait(20s)}, "work paused"},
           {"back", {hour, start, wait(5min), rest, wait(20s), touch}, "work paused away 320"},
           {"started from afar", {hour, rest, start, wait(20s)}, "work"},
           {"resumed from afar", {hour, rest, start, pause, wait(9min), resume, wait(20s)}, "work"},
           {"started from afar, untouched", {hour, rest, start, wait(5min)}, "work paused"},
           {"other minutes while away", {start, lock, on(awayAfterMinutes, 10), wait(1s)}, "work paused"},
           {"began by itself", {start, skip, rest, wait(300s)}, "work paused"},
           {"locked", {start, lock, wait(20s)}, "work paused"},
           {"unlocked", {start, lock, wait(20s), unlock}, "work paused away 20"},
           {"locked, idle", {start, lock, rest, unlock}, "work paused"},
           {"locked before", {lock, start, wait(0s)}, "work paused"},
           {"only the lock", {hour, on(awayAfterMinutes, 0), start, wait(5min), rest}, "work"},
           {"other minutes", {hour, start, on(awayAfterMinutes, 10), wait(10min), rest, touch}, "work paused away 600"},
           {"away again", {start, lock, unlock, lock, wait(9s), unlock}, "work paused away 9"},
           {"resumed", {start, lock, unlock, goOn}, "work"},
           {"resumed elsewhere", {start, lock, unlock, resume}, "work"},
           {"resumed and gone", {start, lock, unlock, resume, lock}, "work paused"},
           {"to the break", {start, lock, unlock, leave}, "shortBreak"},
           {"not offered, thus not taken", {start, pause, goOn, leave}, "work paused"},
           {"reset", {start, lock, unlock, reset}, "idle"},
           {"overtime", {overflow, due, lock, wait(2s), unlock}, "work overtime paused away 2"},
           {"overtime to the break", {overflow, due, lock, unlock, leave}, "shortBreak"},
           {"paused", {start, pause, lock, unlock}, "work paused"},
           {"waiting focus", {askFocus, due, wait(300s), lock, unlock}, "work ready"},
           {"break", {start, skip, lock, unlock}, "shortBreak"},
           {"lock gone", {start, lock, lockGone}, "work paused away 0"},
           {"idle gone", {hour, start, wait(5min), rest, idleGone}, "work paused away 300"}},
          {pausesWhenAway});
}

TEST(MannersService, SaysOnceThatABreakIsNear)
{
    check({{"far", {start, wait(29s)}, "work"},
           {"near", {start, wait(30s)}, "work near"},
           {"shorter than that", {on(wordBeforeSeconds, 60), start, wait(59s)}, "work"},
           {"there", {due}, "shortBreak"},
           {"overtime", {overflow, start, wait(59s)}, "work near"},
           {"in overtime", {overflow, due, wait(1s)}, "work overtime"},
           {"paused", {start, wait(40s), pause}, "work paused"},
           {"resumed", {start, wait(40s), pause, resume, wait(1s)}, "work"},
           {"paused before", {start, wait(20s), pause, resume, wait(15s)}, "work near"},
           {"extended", {start, wait(40s), extend}, "work"},
           {"near again", {start, wait(40s), extend, wait(295s)}, "work near"},
           {"break", {start, skip, wait(280s)}, "shortBreak"}},
          {saysWordBefore});
}

TEST(MannersService, NothingIsOtherwiseWhileAllIsOff)
{
    EngineFixture without;
    Person person;
    for (FakeFact *fact : {&person.surroundings.call, &person.surroundings.fullScreen, &person.surroundings.lock})
        fact->become(Fact::yes);
    for (EngineFixture *engine : {&without, static_cast<EngineFixture *>(&person)}) {
        engine->settings.setWorkDurationSeconds(60);
        engine->machine.start();
    }
    // A whole set and more.
    for (int minute = 0; minute < 50; ++minute) {
        without.pass(60s);
        person.pass(60s);
        ASSERT_EQ(person.runLoop.activeTimers(), without.runLoop.activeTimers()) << minute;
        ASSERT_EQ(person.timer.remainingSeconds(), without.timer.remainingSeconds()) << minute;
        ASSERT_FALSE(person.isWatched()) << minute;
    }
    EXPECT_GT(without.transitions.size(), 8U);
    EXPECT_EQ(person.transitions, without.transitions);
    EXPECT_EQ(person.surroundings.call.watched + person.surroundings.idle.watched, 0);
}

}
}
