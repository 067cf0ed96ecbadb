#include "Alerts/NotificationCenterService.h"
#include "Alerts/NotificationIdentifiers.h"
#include "Fakes/EngineFixture.h"
#include "Fakes/FakeAlerts.h"

#include <gmock/gmock.h>
#include <set>
#include <tuple>

namespace {

using namespace tomcatto;
using namespace std::chrono_literals;
using enum PomodoroPhase;
namespace Action = NotificationActionIdentifier;
namespace Category = NotificationCategoryIdentifier;

TEST(NotificationActionRouterTest, LetsThroughWhatFitsThePhaseAndNothingElse)
{
    using Decision = NotificationRouteDecision;
    using State = std::tuple<QString, PomodoroPhase, bool, bool>;
    // Of a fresh notification, while the application is in use: action, phase, overflowing, pending.
    std::map<State, Decision> expected;
    for (const bool overflows : {false, true}) {
        for (const bool isPending : {false, true}) {
            expected[{Action::startWork, working, overflows, isPending}] = Decision::startWork;
            expected[{Action::snooze, working, overflows, isPending}] = Decision::snooze;
            for (const PomodoroPhase phase : {working, shortBreak, longBreak})
                expected[{Action::extend, phase, overflows, isPending}] = Decision::extend;
        }
        expected[{Action::takeBreak, working, true, overflows}] = Decision::takeBreak;
        expected[{Action::startBreak, shortBreak, overflows, true}] = Decision::takeBreak;
        expected[{Action::startBreak, longBreak, overflows, true}] = Decision::takeBreak;
    }
    const QString fresh = QStringLiteral("token");
    const QStringList actions{Action::startWork,
                              Action::snooze,
                              Action::takeBreak,
                              Action::startBreak,
                              Action::extend,
                              UserNotificationCenter::defaultActionIdentifier,
                              UserNotificationCenter::dismissActionIdentifier,
                              QStringLiteral("phase.action.other")};
    for (const QString &action : actions) {
        for (int bits = 0; bits < 64; ++bits) {
            const NotificationRouteState state{fresh, static_cast<PomodoroPhase>(bits & 3), (bits & 4) != 0,
                                               (bits & 8) != 0, (bits & 16) != 0};
            const bool isFresh = (bits & 32) != 0;
            const auto found = expected.find({action, state.phase, state.isOverflowing, state.isPending});
            Decision due = found != expected.end() && isFresh ? found->second : Decision::ignore;
            if (action == UserNotificationCenter::defaultActionIdentifier)
                due = Decision::openApp;
            if (!state.isInUse)
                due = Decision::ignore;
            const auto token = isFresh ? std::optional(fresh) : std::optional(QStringLiteral("earlier"));
            EXPECT_EQ(NotificationActionRouter::decision(action, token, state), due) << action.toStdString() << bits;
            if (!isFresh) {
                EXPECT_EQ(NotificationActionRouter::decision(action, {}, state), due);
            }
        }
    }
}

TEST(NotificationPayloadTest, IsThereForBreaksThatBeginWaitOrEnd)
{
    std::set<std::tuple<PomodoroPhase, PomodoroPhase, bool, QString>> said;
    for (const PomodoroPhase previous : {idle, working, shortBreak, longBreak}) {
        for (const PomodoroPhase current : {idle, working, shortBreak, longBreak}) {
            for (const bool isPending : {false, true}) {
                if (const auto payload = notificationPayload(previous, current, isPending))
                    said.insert({previous, current, isPending, payload->categoryIdentifier});
            }
        }
    }
    EXPECT_THAT(said, testing::ElementsAre(std::tuple{working, shortBreak, false, Category::breakStarted},
                                           std::tuple{working, shortBreak, true, Category::breakReady},
                                           std::tuple{working, longBreak, false, Category::breakStarted},
                                           std::tuple{working, longBreak, true, Category::breakReady},
                                           std::tuple{shortBreak, working, false, Category::breakEnded},
                                           std::tuple{shortBreak, working, true, Category::breakEnded},
                                           std::tuple{longBreak, working, false, Category::breakEnded},
                                           std::tuple{longBreak, working, true, Category::breakEnded}));
}

struct NotificationCenterServiceTest : EngineFixture, testing::Test
{
    NotificationCenterServiceTest()
    {
        settings.setHasCompletedOnboarding(true);
        settings.setNotificationsEnabled(true);
        service.becomeDelegate();
        service.start();
    }
    /// The user's answer to a notification.
    void respond(const NotificationRequest &request, const QString &action)
    {
        center.respond(action, request.userInfo);
        runLoop.drain();
    }
    [[nodiscard]] std::vector<QString> posted() const
    {
        std::vector<QString> kinds;
        for (const NotificationRequest &request : center.requests)
            kinds.push_back(request.categoryIdentifier);
        return kinds;
    }

    LanguageOverrideService language{defaults};
    LocalizedStrings strings{language};
    FakeNotificationCenter center;
    NotificationCenterService service{settings, machine, {center, runLoop, identifiers, strings}};
};

TEST_F(NotificationCenterServiceTest, PostsWithTheTokenOfTheMomentAndTheLanguageChosen)
{
    EXPECT_EQ(center.delegate->willPresent(), (NotificationPresentation{.isBanner = true, .isInList = true}));
    language.setLanguage(SelectedLanguage::de);
    ASSERT_EQ(center.categories.size(), 5U);
    EXPECT_EQ(center.categories[2], (NotificationCategory{Category::workEnded,
                                                          {{Action::takeBreak, QStringLiteral("Zur Pause")},
                                                           {Action::extend, QStringLiteral("+5 Min.")}}}));
    settings.setOverflowEnabled(true);
    settings.setAutoStartBreaks(true);
    machine.start();
    EXPECT_TRUE(center.requests.empty());
    pass(1500s);
    ASSERT_EQ(posted(), std::vector<QString>{Category::workEnded});
    const NotificationRequest ended = center.requests.front();
    EXPECT_EQ(ended.body, QStringLiteral("25 Minuten Fokus sind geschafft."));
    EXPECT_EQ(ended.userInfo.value(NotificationUserInfoKey::phaseToken), machine.phaseToken());
    EXPECT_EQ(ended.delay, 100ms);
    EXPECT_THAT(ended.identifier.toStdString(),
                testing::MatchesRegex("phase.workEnded.[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"));
}

TEST_F(NotificationCenterServiceTest, SnoozesOnceAndPostsNothingWhileNotificationsAreOff)
{
    machine.start();
    machine.skip();
    machine.skip();
    ASSERT_EQ(posted().back(), Category::breakEnded);
    const NotificationRequest over = center.requests.back();
    center.requests.clear();
    for (int twice = 0; twice < 2; ++twice)
        respond(over, Action::snooze);
    ASSERT_EQ(center.requests.size(), 1U) << "a reminder takes the earlier one's place";
    EXPECT_EQ(center.requests.front().identifier, NotificationCenterService::snoozeRequestIdentifier);
    EXPECT_EQ(center.requests.front().delay, 300s);

    settings.setNotificationsEnabled(false);
    EXPECT_TRUE(center.requests.empty()) << "nor does a reminder come that was scheduled before";
    respond(over, Action::snooze);
    machine.skip();
    EXPECT_TRUE(center.requests.empty());
}

}
