#include "Alerts/PhaseSoundService.h"
#include "Fakes/CapturedLog.h"
#include "Fakes/FakeAlerts.h"
#include "Fakes/MannersFixture.h"

#include <gtest/gtest.h>

namespace {

using namespace tomcatto;
using namespace std::chrono_literals;

TEST(PhaseSoundServiceTest, SaysWhereAPhaseGoesAndStartsAnewInsteadOfTwice)
{
    MannersFixture engine;
    FakeSounds sounds;
    PhaseSoundService service(engine.settings, sounds);
    service.bind(engine.machine, engine.manners);
    engine.settings.setSoundEnabled(true);
    engine.settings.setOverflowEnabled(true);
    const auto heard = [&sounds] { return std::exchange(sounds.log, {}).join(QLatin1Char(',')).toStdString(); };

    engine.machine.start();
    EXPECT_EQ(heard(), "rewind Pop,play Pop");
    engine.pass(1500s);
    EXPECT_EQ(heard(), "rewind Glass,play Glass") << "the plan is reached";
    engine.machine.takeBreak();
    engine.machine.skip();
    EXPECT_EQ(heard(), "rewind Glass,play Glass,rewind Pop,play Pop");
    engine.machine.skip();
    engine.machine.reset();
    engine.machine.start();
    engine.machine.skip();
    EXPECT_EQ(heard(), "rewind Glass,play Glass,rewind Pop,play Pop,stop Glass,rewind Glass,play Glass")
        << "a reset is silent, a sound that still plays begins anew";

    engine.settings.setOverflowEnabled(false);
    engine.turnOn({MannersFixture::Key::waitsDuringCalls});
    engine.surroundings.call.become(Fact::yes);
    engine.machine.skip();
    EXPECT_EQ(heard(), "rewind Pop,play Pop");
    engine.pass(1500s);
    ASSERT_TRUE(engine.manners.heldBy());
    EXPECT_EQ(heard(), "") << "a call would hear it";
    engine.tell(engine.surroundings.call, Fact::no);
    engine.pass(15s);
    EXPECT_EQ(heard(), "rewind Glass,play Glass") << "begins by itself";
    engine.tell(engine.surroundings.call, Fact::yes);
    engine.machine.skip();
    engine.pass(1500s);
    engine.settings.setAutoStartBreaks(false);
    engine.tell(engine.surroundings.call, Fact::no);
    engine.pass(15s);
    EXPECT_EQ(heard(), "rewind Pop,play Pop,rewind Glass,play Glass") << "waits for the user from now on";
    engine.settings.setAutoStartBreaks(true);

    engine.settings.setSoundEnabled(false);
    engine.machine.skip();
    engine.pass(1500s);
    EXPECT_EQ(heard(), "");
}

TEST(PhaseSoundServiceTest, LogsASoundThatTheSystemDoesNotHave)
{
    struct Silence final : SystemSounds
    {
        [[nodiscard]] SystemSound *named(const QString & /*name*/) override { return nullptr; }
    } silence;
    MannersFixture engine;
    engine.settings.setSoundEnabled(true);
    PhaseSoundService service(engine.settings, silence);
    service.bind(engine.machine, engine.manners);
    const CapturedLog log;
    engine.machine.start();
    EXPECT_EQ(log.count(LogLevel::error), 1);
}

}
