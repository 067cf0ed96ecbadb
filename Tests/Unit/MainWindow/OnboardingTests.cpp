#include "Fakes/FakeViewHost.h"
#include "Fakes/MainWindowFixture.h"
#include "MainWindow/OnboardingController.h"

#include <gtest/gtest.h>

namespace tomcatto {

namespace {

class Onboarding : public testing::Test
{
protected:
    Onboarding()
    {
        QObject::connect(&controller, &OnboardingController::completed, &controller, [this] { ++completed; });
        QObject::connect(&controller, &OnboardingController::wasReset, &controller, [this] { ++resets; });
    }

    MainWindowFixture fixture;
    FakeViewHost viewHost{fixture.engine.runLoop};
    ViewWindows windows{viewHost, fixture.engine.runLoop};
    OnboardingController controller{windows, fixture.engine.settings, fixture.engine.machine, fixture.onboarding};
    int completed = 0;
    int resets = 0;
};

}

TEST_F(Onboarding, IsShownUntilItWasCompleted)
{
    controller.showIfNeeded();
    ASSERT_TRUE(controller.isShown());
    viewHost.current->close();
    fixture.engine.runLoop.drain();
    EXPECT_FALSE(controller.isShown());
    EXPECT_FALSE(fixture.engine.settings.hasCompletedOnboarding()) << "closing is not completing";

    fixture.engine.settings.setHasCompletedOnboarding(true);
    controller.showIfNeeded();
    EXPECT_FALSE(controller.isShown());
}

TEST_F(Onboarding, OnePressFromItsFirstStepRunsAFocusPhase)
{
    controller.showIfNeeded();
    fixture.onboarding.startFocus();
    EXPECT_EQ(fixture.engine.machine.currentPhase(), PomodoroPhase::working);
    fixture.engine.machine.pause();
    fixture.onboarding.startFocus();
    EXPECT_FALSE(fixture.engine.machine.isPaused());
    EXPECT_TRUE(fixture.engine.settings.hasCompletedOnboarding());
    EXPECT_EQ(completed, 2);
    fixture.engine.runLoop.drain();
    EXPECT_EQ(viewHost.current, nullptr) << "the window is let go";
}

TEST_F(Onboarding, ResetShowsItAgainFromTheFirstStep)
{
    controller.showIfNeeded();
    fixture.onboarding.back();
    EXPECT_EQ(fixture.onboarding.step(), 0);
    fixture.onboarding.next();
    fixture.onboarding.startFocus();
    controller.reset();
    fixture.engine.runLoop.drain();
    EXPECT_EQ(resets, 1);
    EXPECT_TRUE(controller.isShown()) << "the closing before does not close it";
    EXPECT_EQ(fixture.onboarding.step(), 0);
    EXPECT_FALSE(fixture.engine.settings.hasCompletedOnboarding());
}

TEST_F(Onboarding, ChoicesActAtOnce)
{
    fixture.onboarding.choosePreset(QStringLiteral("flow"));
    EXPECT_EQ(fixture.engine.settings.preset(), NamedPreset::flow);
    EXPECT_EQ(fixture.onboarding.focusTime(), QStringLiteral("45:00"));
    fixture.onboarding.setLaunchAtLogin(true);
    EXPECT_EQ(fixture.loginItem.current, LoginItemStatus::enabled);

    EXPECT_EQ(fixture.onboarding.notifications(), QStringLiteral("ask"));
    fixture.onboarding.allowNotifications();
    EXPECT_EQ(fixture.onboarding.notifications(), QStringLiteral("allowed"));
    fixture.probe.current.permission = NotificationPermission::denied;
    fixture.onboarding.restart();
    fixture.onboarding.allowNotifications();
    EXPECT_EQ(fixture.systemSettings.notifications, 1);
    EXPECT_EQ(fixture.probe.requests, 1);
}

}
