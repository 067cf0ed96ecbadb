#include "Control/TimerStatus.h"

#include <gtest/gtest.h>

using namespace tomcatto;

namespace {

TimerStatus focus()
{
    TimerStatus status;
    status.phase = PomodoroPhase::working;
    status.remainingSeconds = 1200;
    status.plannedSeconds = 1500;
    status.cycleIndex = 1;
    status.cyclesPerSet = 4;
    status.phaseToken = QStringLiteral("AB");
    status.title = QStringLiteral("20:00");
    status.todayCompleted = 3;
    status.todayFocusMinutes = 75;
    status.dailyGoal = 8;
    status.streak = 2;
    return status;
}

}

TEST(TimerStatus, JsonHasEveryFieldInItsOrder)
{
    EXPECT_EQ(rendered(focus(), StatusFormat::json).toStdString(),
              R"({"phase":"work","isPaused":false,"isPending":false,"isOverflowing":false,"remainingSeconds":1200,)"
              R"("overflowSeconds":0,"plannedSeconds":1500,"cycleIndex":1,"cyclesPerSet":4,"phaseToken":"AB",)"
              R"("title":"20:00","todayCompleted":3,"todayFocusMinutes":75,"dailyGoal":8,"streak":2,"heldBy":null})");
    EXPECT_EQ(timerStatusFromJson(toJson(focus())), focus());
    TimerStatus held = focus();
    held.heldBy = HoldReason::fullScreen;
    EXPECT_EQ(toJson(held).back(), "fullScreen");
    EXPECT_EQ(timerStatusFromJson(toJson(held)), held);
    EXPECT_TRUE(differByMoreThanTick(focus(), held));
    auto earlier = toJson(focus());
    earlier.erase("heldBy");
    EXPECT_EQ(timerStatusFromJson(earlier), focus()) << "a program from before";
}

TEST(TimerStatus, RubbishIsAnErrorAndNoCrash)
{
    for (const char *text : {"{}", "[]", "null", R"({"phase":5})", R"({"phase":"nap"})"})
        EXPECT_FALSE(timerStatusFromJson(nlohmann::ordered_json::parse(text))) << text;
}

TEST(TimerStatus, OtherFormatsSayTheState)
{
    TimerStatus status = focus();
    EXPECT_EQ(rendered(status, StatusFormat::text), QStringLiteral("20:00 work, round 2 of 4, 3 of 8 today"));
    EXPECT_NE(rendered(status, StatusFormat::waybar).indexOf(QStringLiteral("\"percentage\":20")), -1);
    status.isPaused = true;
    EXPECT_NE(rendered(status, StatusFormat::text).indexOf(QStringLiteral("(paused)")), -1);
    status.isPending = true;
    status.heldBy = HoldReason::call;
    EXPECT_NE(rendered(status, StatusFormat::text).indexOf(QStringLiteral("(ready, waits until the call is over)")),
              -1);
    status = focus();
    status.isOverflowing = true;
    status.remainingSeconds = 0;
    EXPECT_NE(rendered(status, StatusFormat::waybar).indexOf(QStringLiteral("[\"work\",\"overtime\"]")), -1);
}

TEST(TimerStatus, TicksAloneAreNoDifference)
{
    TimerStatus later = focus();
    later.remainingSeconds = 1199;
    later.title = QStringLiteral("19:59");
    EXPECT_FALSE(differByMoreThanTick(focus(), later));
    later.isPaused = true;
    EXPECT_TRUE(differByMoreThanTick(focus(), later));
}
