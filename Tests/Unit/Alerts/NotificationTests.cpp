#include "Alerts/NotificationCenterService.h"
#include "Alerts/NotificationIdentifiers.h"
#include "Fakes/FakeAlerts.h"
#include "Fakes/MannersFixture.h"

#include <bitset>
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
    using State = std::tuple<QString, PomodoroPhase, bool, bool, bool>;
    // Of a fresh notification, while the application is in use: action, phase, overflowing, pending, back from away.
    std::map<State, Decision> expected;
    for (unsigned bits = 0; bits < 8; ++bits) {
        const std::bitset<3> is(bits);
        expected[{Action::startWork, working, is[0], is[1], is[2]}] = Decision::startWork;
        expected[{Action::snooze, working, is[0], is[1], is[2]}] = Decision::snooze;
        expected[{Action::takeBreak, working, true, is[1], is[2]}] = Decision::takeBreak;
        for (const PomodoroPhase phase : {working, shortBreak, longBreak}) {
            expected[{Action::extend, phase, is[0], is[1], is[2]}] = Decision::extend;
            expected[{Action::resumeAfterAway, phase, is[0], is[1], true}] = Decision::resumeAfterAway;
            expected[{Action::takeBreakAfterAway, phase, is[0], is[1], true}] = Decision::takeBreakAfterAway;
            if (isBreak(phase))
                expected[{Action::startBreak, phase, is[0], true, is[2]}] = Decision::takeBreak;
        }
    }
    const QString fresh = QStringLiteral("token");
    const QStringList actions{Action::startWork,
                              Action::snooze,
                              Action::takeBreak,
                              Action::startBreak,
                              Action::extend,
                              Action::resumeAfterAway,
                              Action::takeBreakAfterAway,
                              UserNotificationCenter::defaultActionIdentifier,
                              UserNotificationCenter::dismissActionIdentifier,
                              QStringLiteral("phase.action.other")};
    for (const QString &action : actions) {
        for (int bits = 0; bits < 128; ++bits) {
            const NotificationRouteState state{fresh,
                                               static_cast<PomodoroPhase>(bits & 3),
                                               (bits & 4) != 0,
                                               (bits & 8) != 0,
                                               (bits & 16) != 0,
                                               (bits & 64) != 0};
            const bool isFresh = (bits & 32) != 0;
            const auto found =
                expected.find({action, state.phase, state.isOverflowing, state.isPending, state.isBackFromAway});
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

struct NotificationCenterServiceTest : MannersFixture, testing::Test
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
    NotificationCenterService service{settings, machine, {center, runLoop, identifiers, strings, manners, wallClock}};
};

TEST_F(NotificationCenterServiceTest, PostsWithTheTokenOfTheMomentAndTheLanguageChosen)
{
    EXPECT_EQ(center.delegate->willPresent(), (NotificationPresentation{.isBanner = true, .isInList = true}));
    language.setLanguage(SelectedLanguage::de);
    ASSERT_EQ(center.categories.size(), 7U);
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

TEST_F(NotificationCenterServiceTest, TellsWhatGoodMannersDoAndTakesTheAnswers)
{
    const auto last = [this] { return center.requests.back().title + QLatin1Char('|') + center.requests.back().body; };
    turnOn({Key::waitsDuringCalls, Key::waitsInFullScreen, Key::pausesWhenAway, Key::saysWordBefore});
    machine.start();
    pass(1469s);
    EXPECT_TRUE(center.requests.empty());
    pass(1s);
    EXPECT_EQ(last(), QStringLiteral("Your break is near|Five minutes more, if the thought needs them."));
    const NotificationRequest near = center.requests.back();
    respond(near, Action::extend);
    EXPECT_EQ(timer.remainingSeconds(), 330);
    respond(near, Action::extend);
    EXPECT_EQ(timer.remainingSeconds(), 330) << "of an end that was put off";

    pass(10s);
    tell(surroundings.lock, Fact::yes);
    pass(60s);
    tell(surroundings.lock, Fact::no);
    wallClock.setCalendar({QTimeZone("Europe/Berlin"), Qt::Monday});
    EXPECT_EQ(last(), QStringLiteral("Welcome back|Away since 09:18. The focus phase is paused."));
    const NotificationRequest away = center.requests.back();
    respond(away, Action::resumeAfterAway);
    EXPECT_FALSE(machine.isPaused());
    respond(away, Action::takeBreakAfterAway);
    EXPECT_EQ(machine.currentPhase(), working) << "of an absence that is over";

    surroundings.call.become(Fact::yes);
    surroundings.fullScreen.become(Fact::yes);
    pass(320s);
    EXPECT_EQ(last(), QStringLiteral("Your break is ready|It waits until the call is over."));
    tell(surroundings.call, Fact::no);
    tell(surroundings.fullScreen, Fact::no);
    pass(15s);
    EXPECT_EQ(posted().back(), Category::breakStarted) << "begins by itself";
    machine.skip();
    tell(surroundings.fullScreen, Fact::yes);
    pass(1500s);
    EXPECT_EQ(last(), QStringLiteral("Your break is ready|It waits while something is full screen."));
    const std::size_t count = center.requests.size();
    respond(center.requests.back(), Action::startBreak);
    EXPECT_FALSE(machine.isPaused());
    EXPECT_EQ(center.requests.size(), count) << "the person knows";
    machine.skip();
    tell(surroundings.lock, Fact::yes);
    tell(surroundings.lock, Fact::no);
    respond(center.requests.back(), Action::takeBreakAfterAway);
    EXPECT_TRUE(isBreak(machine.currentPhase()));
}

}
