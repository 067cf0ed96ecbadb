#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeUserDefaults.h"
#include "SystemIntegration/ActivationPolicy.h"
#include "SystemIntegration/LaunchAtLoginService.h"

#include <gtest/gtest.h>

namespace tomcatto {

namespace {

class LaunchAtLogin : public testing::Test
{
protected:
    FakeUserDefaults defaults;
    PomodoroSettings settings{defaults};
    FakeLoginItem item;
    FakeAlert alert;
    FakeSystemSettings systemSettings;
    LanguageOverrideService languages{defaults, {QStringLiteral("en")}};
    LocalizedStrings strings{languages};
    LaunchAtLoginService service{settings, item, LaunchAtLoginService::FailureAlert{alert, systemSettings, strings}};
};

}

TEST_F(LaunchAtLogin, SettingFollowsTheStatusReadFromTheSystem)
{
    for (const auto &[status, isOn] : {std::pair{LoginItemStatus::enabled, true},
                                       {LoginItemStatus::requiresApproval, false},
                                       {LoginItemStatus::notRegistered, false},
                                       {LoginItemStatus::otherProgram, false},
                                       {LoginItemStatus::enabled, true},
                                       {LoginItemStatus::unavailable, false}}) {
        item.current = status;
        service.readStatus();
        EXPECT_EQ(service.status(), status);
        EXPECT_EQ(settings.launchAtLogin(), isOn);
    }
    EXPECT_EQ(item.calls, 0) << "following the system registers nothing";

    item.current = LoginItemStatus::outdated;
    service.readStatus();
    EXPECT_EQ(item.calls, 1) << "what is gone is replaced by this program";
    EXPECT_TRUE(settings.launchAtLogin());
    item.current = LoginItemStatus::outdated;
    item.failure = QStringLiteral("disk full");
    service.readStatus();
    EXPECT_FALSE(settings.launchAtLogin());
    EXPECT_TRUE(alert.shown.empty()) << "nobody has asked for anything";
}

TEST_F(LaunchAtLogin, WhatNeedsAnApprovalIsOffUntilThen)
{
    item.afterRegister = LoginItemStatus::requiresApproval;
    service.enable();
    EXPECT_FALSE(settings.launchAtLogin()) << "nothing is started before the approval";
    EXPECT_EQ(service.status(), LoginItemStatus::requiresApproval);
    EXPECT_TRUE(alert.shown.empty());
}

TEST_F(LaunchAtLogin, FailureIsLoggedAndToldAndTurnsTheSettingBack)
{
    std::vector<QString> lines;
    setLogSink([&lines](LogLevel level, const QString &category, const QString &message) {
        EXPECT_EQ(level, LogLevel::error);
        EXPECT_EQ(category, QStringLiteral("LaunchAtLoginService"));
        lines.push_back(message);
    });
    item.failure = QStringLiteral("disk full");

    settings.setLaunchAtLogin(true);
    EXPECT_FALSE(settings.launchAtLogin());
    item.current = LoginItemStatus::enabled;
    service.readStatus();
    service.disable();
    EXPECT_TRUE(settings.launchAtLogin());
    setLogSink({});

    EXPECT_EQ(lines, (std::vector{QStringLiteral("launch-at-login register failed: disk full"),
                                  QStringLiteral("launch-at-login unregister failed: disk full")}));
    ASSERT_EQ(alert.shown.size(), 2U);
    EXPECT_EQ(alert.shown[0].message, QStringLiteral("Opening at login could not be changed"));
    EXPECT_EQ(alert.shown[0].firstButton, QStringLiteral("Open settings"));
    EXPECT_EQ(alert.shown[0].secondButton, QStringLiteral("Not now"));

    alert.close(AlertButton::second);
    EXPECT_EQ(systemSettings.loginItems, 0);
    alert.close(AlertButton::first);
    EXPECT_EQ(systemSettings.loginItems, 1);
}

TEST(ActivationPolicy, IsRegularWhileAnybodyHoldsIt)
{
    using enum ActivationPolicyKind;
    FakeActivationPolicyPort port;
    ActivationPolicy policy(port);
    EXPECT_EQ(port.kinds, std::vector{accessory});

    Cancellable window = policy.hold();
    Cancellable preview = policy.hold();
    window.cancel();
    window.cancel();
    EXPECT_EQ(policy.holders(), 1);
    EXPECT_EQ(port.kinds, (std::vector{accessory, regular}));
    preview = {};
    EXPECT_EQ(port.kinds, (std::vector{accessory, regular, accessory}));
}

}
