#include "BreakOverlay/BreakOverlayController.h"
#include "Fakes/FakeOverlay.h"
#include "Fakes/MannersFixture.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

struct Overlay : MannersFixture
{
    Overlay()
    {
        settings.setWorkDurationSeconds(60);
        screens.plug({u"left"_s, u"right"_s});
        settle();
        controller = std::make_unique<BreakOverlayController>(machine, timer, settings, manners, runLoop, screens, keys,
                                                              windows);
    }
    void settle() { pass(ScreenChanges::quietTime); }
    void waitFor(bool breaks) { settings.setAutoStartBreaks(!breaks); }
    void announce(bool notifications, bool sounds)
    {
        settings.setNotificationsEnabled(notifications);
        settings.setSoundEnabled(sounds);
    }
    void finishWork()
    {
        machine.start();
        pass(60s);
        settle();
    }

    FakeScreens screens{runLoop};
    FakeKeyMonitor keys;
    FakeOverlayWindows windows;
    std::unique_ptr<BreakOverlayController> controller;
};

using Act = std::function<void(Overlay &)>;

const Act work = [](Overlay &o) { o.machine.start(); };
const Act finish = [](Overlay &o) { o.finishWork(); };
const Act skip = [](Overlay &o) { o.machine.skip(); };
const Act take = [](Overlay &o) { o.machine.takeBreak(); };
const Act pause = [](Overlay &o) { o.machine.pause(); };
const Act resume = [](Overlay &o) { o.machine.resume(); };
const Act extend = [](Overlay &o) { o.machine.extend(300); };
const Act reset = [](Overlay &o) { o.machine.reset(); };
const Act endBreak = [](Overlay &o) { o.pass(300s); };
const Act close = [](Overlay &o) { o.windows.close(); };
const Act hide = [](Overlay &o) { o.controller->hide(); };
const Act showWork = [](Overlay &o) { o.controller->show(PomodoroPhase::working); };
const Act plug = [](Overlay &o) { o.screens.plug({u"other"_s}); };
const Act unplug = [](Overlay &o) { o.screens.plug({}); };
const Act longBreak = [](Overlay &o) { o.settings.setCyclesBeforeLongBreak(1); };
const Act overflow = [](Overlay &o) { o.settings.setOverflowEnabled(true); };
const Act holdWork = [](Overlay &o) { o.settings.setAutoStartFocus(false); };
const Act hold = [](Overlay &o) { o.waitFor(true); };
const Act silent = [](Overlay &o) { o.announce(false, false); };
const Act call = [](Overlay &o) {
    o.turnOn({Overlay::Key::waitsDuringCalls});
    o.surroundings.call.become(Fact::yes);
};
const Act hangUp = [](Overlay &o) {
    o.tell(o.surroundings.call, Fact::no);
    o.pass(BreakHold::callLinger);
};
const Act soundOnly = [](Overlay &o) { o.announce(false, true); };

TEST(BreakOverlayController, DecidesFromTheStateAtDelivery)
{
    const std::vector<std::tuple<const char *, std::vector<Act>, bool>> cases{
        {"working", {work}, false},
        {"runs on", {finish}, true},
        {"skipped into", {work, skip}, true},
        {"long", {longBreak, finish}, true},
        {"no screen", {unplug, finish}, false},
        {"screens change while hidden", {work, plug}, false},
        {"waits, announced", {hold, finish}, false},
        {"waits, sound only", {hold, soundOnly, finish}, false},
        {"waits, silent", {hold, silent, finish}, true},
        {"long, waits, silent", {longBreak, hold, silent, finish}, true},
        {"waits, silent, started", {hold, silent, finish, take}, true},
        {"waits, started", {hold, finish, take}, true},
        {"waits, resumed", {hold, finish, resume}, true},
        {"waits, extended", {hold, finish, extend}, false},
        {"waits, skipped", {hold, finish, skip}, false},
        {"waits, reset", {hold, finish, reset}, false},
        {"held, silent", {call, silent, finish}, false},
        {"held, silent, over", {call, silent, finish, hangUp}, true},
        {"held, then waits, silent", {call, silent, finish, hold, hangUp}, true},
        {"held, then waits", {call, finish, hold, hangUp}, false},
        {"held, over", {call, finish, hangUp}, true},
        {"held, started", {call, silent, finish, take}, true},
        {"held, skipped, over", {call, finish, skip, hangUp}, false},
        {"work waits, started", {holdWork, finish, endBreak, resume}, false},
        {"hidden, paused, resumed", {finish, hide, pause, resume}, false},
        {"closed by the desktop", {finish, close}, false},
        {"break ends", {finish, endBreak}, false},
        {"reset", {finish, reset}, false},
        {"overflow taken", {overflow, finish, take}, true},
        {"asked for work", {showWork}, false},
    };
    for (const auto &[name, acts, isShown] : cases) {
        Overlay overlay;
        for (const Act &act : acts) {
            act(overlay);
            overlay.settle();
        }
        EXPECT_EQ(overlay.windows.open.size(), isShown ? 2 : 0) << name;
        EXPECT_EQ(static_cast<bool>(overlay.keys.handler), isShown) << name;
        EXPECT_LE(overlay.windows.made, 2) << name << ": an overlay that is up stays";
    }
}

TEST(BreakOverlayController, DeliversInALaterTurnAndNotToADeadController)
{
    Overlay overlay;
    overlay.machine.start();
    overlay.machine.skip();
    EXPECT_TRUE(overlay.windows.open.isEmpty());
    overlay.controller.reset();
    overlay.settle();
    EXPECT_EQ(overlay.windows.made, 0);
}

TEST(BreakOverlayController, StaysForScreensThatGoWithTheReportOfTheirComing)
{
    Overlay overlay;
    overlay.finishWork();
    overlay.screens.plug({u"other"_s});
    const Cancellable going = overlay.screens.onChanged([&] { overlay.screens.plug({}); });
    overlay.settle();
    overlay.screens.plug({u"left"_s});
    overlay.settle();
    EXPECT_EQ(overlay.windows.open.size(), 1);
}

TEST(BreakOverlayController, EscSkipsAndEveryOtherKeyPasses)
{
    Overlay overlay;
    EXPECT_FALSE(overlay.keys.press(Qt::Key_Escape));
    overlay.finishWork();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Q, Qt::Key_Tab, Qt::Key_Back})
        EXPECT_FALSE(overlay.keys.press(key)) << key;
    EXPECT_EQ(overlay.windows.open.size(), 2);

    // The windows are gone before the skip is heard of.
    bool wasHidden = false;
    QObject::connect(&overlay.machine, &PomodoroStateMachine::transitioned, overlay.controller.get(),
                     [&] { wasHidden = overlay.windows.open.isEmpty(); });
    EXPECT_TRUE(overlay.keys.press(Qt::Key_Escape));
    EXPECT_TRUE(wasHidden);
    EXPECT_EQ(overlay.transitions.back().reason, PhaseExitReason::skipped);
    EXPECT_FALSE(overlay.keys.press(Qt::Key_Escape));
}

TEST(BreakOverlayController, MakesReadyShortlyBeforeABreakThatWillShow)
{
    struct Case
    {
        bool runsOn;
        bool overflows;
        bool isAnnounced;
        bool isWarm;
    };
    for (const auto &[runsOn, overflows, isAnnounced, isWarm] :
         {Case{true, false, true, true}, Case{false, false, true, false}, Case{false, false, false, true},
          Case{true, true, true, false}}) {
        Overlay overlay;
        overlay.waitFor(!runsOn);
        overlay.settings.setOverflowEnabled(overflows);
        overlay.announce(isAnnounced, isAnnounced);
        overlay.machine.start();
        overlay.pass(49s);
        EXPECT_FALSE(overlay.windows.isWarm);
        overlay.pass(1s);
        EXPECT_EQ(overlay.windows.isWarm, isWarm) << runsOn << overflows << isAnnounced;
        overlay.machine.pause();
        EXPECT_FALSE(overlay.windows.isWarm);
        overlay.machine.resume();
        overlay.pass(11s);
        EXPECT_FALSE(overlay.windows.isWarm) << "what was ready is used";
    }
}

}
}
