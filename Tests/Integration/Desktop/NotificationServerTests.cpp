#include "Alerts/NotificationCenterService.h"
#include "Alerts/NotificationIdentifiers.h"
#include "Fakes/MannersFixture.h"
#include "MockedBus.h"
#include "Platform/Freedesktop/FreedesktopNotificationCenter.h"

#include <csignal>
#include <gmock/gmock.h>
#include <QtDBus/QDBusArgument>

using namespace tomcatto;
using namespace std::chrono_literals;
namespace Action = NotificationActionIdentifier;

namespace {

/// The alerts and their adapter over an engine whose time the test moves, before a server on a real bus.
struct NotificationServerTests : MockedBus, MannersFixture
{
    NotificationServerTests()
    {
        settings.setHasCompletedOnboarding(true);
        QObject::connect(&service, &NotificationCenterService::activationRequested, &service,
                         [this] { ++activations; });
        service.becomeDelegate();
        service.start();
    }
    [[nodiscard]] std::unique_ptr<SideProgram>
    startServer(const QString &capabilities = QStringLiteral("actions\\nbody"))
    {
        return startMock(
            QStringLiteral("--template notification_daemon --parameters {\"capabilities\":\"%1\"}").arg(capabilities),
            name);
    }
    QDBusMessage ask(const QString &method, const QVariantList &arguments)
    {
        return call(name, QStringLiteral("/org/freedesktop/Notifications"), method, arguments);
    }
    [[nodiscard]] QList<QVariantList> calls(const QString &method)
    {
        QList<QVariantList> calls;
        const auto log = ask(QStringLiteral("GetMethodCalls"), {method}).arguments().value(0).value<QDBusArgument>();
        for (log.beginArray(); !log.atEnd();) {
            quint64 time = 0;
            log.beginStructure();
            log >> time >> calls.emplaceBack();
            log.endStructure();
        }
        log.endArray();
        return calls;
    }
    /// Waits for that notification since the server's start, which is to be the last. @return which one it replaces,
    /// its texts and its buttons
    [[nodiscard]] std::string notice(qsizetype number)
    {
        pass(100ms);
        QList<QVariantList> all;
        EXPECT_TRUE(QTest::qWaitFor([&] { return (all = calls(QStringLiteral("Notify"))).size() >= number; }, 20'000));
        EXPECT_EQ(all.size(), number);
        const QVariantList last = all.isEmpty() ? QVariantList() : all.constLast();
        return QStringList({last.value(1).toString(), last.value(3).toString(), last.value(4).toString(),
                            last.value(5).toStringList().join(u',')})
            .join(u'|')
            .toStdString();
    }
    void press(uint id, const QString &action)
    {
        ask(QStringLiteral("EmitSignal"), {name, QStringLiteral("ActionInvoked"), QStringLiteral("us"),
                                           QVariant::fromValue(QVariantList{id, action})});
    }
    [[nodiscard]] bool becomes(const std::function<bool()> &condition)
    {
        return QTest::qWaitFor([&] { return runLoop.drain(), condition(); }, 20'000);
    }

    const QString name = QStringLiteral("org.freedesktop.Notifications");
    LanguageOverrideService language{defaults, {QStringLiteral("en")}};
    LocalizedStrings strings{language};
    FreedesktopNotificationCenter center{m_bus.connection(), runLoop};
    NotificationCenterService service{settings, machine, {center, runLoop, identifiers, strings, manners, wallClock}};
    int activations = 0;
};

TEST_F(NotificationServerTests, TellsOfEachChangeAndDoesWhatItsButtonsSay)
{
    machine.start();
    machine.skip();
    pass(100ms);
    machine.reset();
    const auto server = startServer();
    settings.setOverflowEnabled(true);
    settings.setAutoStartFocus(false);
    settings.setAutoStartBreaks(false);
    machine.start();
    pass(1500s);
    EXPECT_EQ(notice(1), "0|Time for a break|25 minutes of focus are done.|default,Tomcatto,"
                         "phase.action.takeBreak,Take break,phase.action.extend,+5 min");
    press(1, Action::extend);
    EXPECT_TRUE(becomes([&] { return machine.currentPlannedSeconds() == 1800; }));
    // That phase had another end; a press on the notification itself works all the same.
    press(1, Action::takeBreak);
    press(1, UserNotificationCenter::defaultActionIdentifier);
    EXPECT_TRUE(becomes([&] { return activations == 1; }));
    EXPECT_EQ(machine.currentPhase(), PomodoroPhase::working);
    pass(301s);
    EXPECT_THAT(notice(2), testing::HasSubstr("30 minutes"));
    press(2, Action::takeBreak);
    EXPECT_TRUE(becomes([&] { return machine.currentPhase() == PomodoroPhase::shortBreak; }));
    EXPECT_EQ(notice(3), "0|Your break begins|Look away from the screen for a while.|default,Tomcatto");
    pass(301s);
    const std::string over = "0|The break is over|The next focus phase is here.|default,Tomcatto,"
                             "phase.action.startWork,Start focus,phase.action.snooze,Snooze 5 min";
    EXPECT_EQ(notice(4), over);
    const std::size_t timers = runLoop.activeTimers();
    press(4, Action::snooze);
    EXPECT_TRUE(becomes([&] { return runLoop.activeTimers() == timers + 1; }));
    pass(300s);
    EXPECT_EQ(notice(5), over);
    press(5, Action::startWork);
    EXPECT_TRUE(becomes([&] { return !machine.isPaused(); }));
    pass(5101s);
    EXPECT_EQ(notice(7), "0|An hour past the end|The timer is paused until you are back.|default,Tomcatto");
    settings.setOverflowEnabled(false);
    machine.skip();
    machine.skip();
    pass(1501s);
    EXPECT_EQ(notice(10), "0|Your break is ready|Finish the thought, then let go.|default,Tomcatto,"
                          "phase.action.startBreak,Start break");
    press(10, Action::startBreak);
    EXPECT_TRUE(becomes([&] { return !machine.isPaused(); }));
}

TEST_F(NotificationServerTests, GoesOnWhenTheServerRestartsOrHangs)
{
    auto server = startServer();
    const auto snooze = [&](uint id) {
        machine.resume();
        press(id, Action::snooze);
        EXPECT_TRUE(becomes([&] { return machine.isPaused(); }));
    };
    machine.start();
    machine.skip();
    machine.skip();
    EXPECT_NE(notice(2), "");
    snooze(2);
    pass(300s);
    EXPECT_NE(notice(3), "");
    server.reset();
    EXPECT_TRUE(becomes([&] { return !m_test.interface()->isServiceRegistered(name); }));

    server = startServer();
    press(3, UserNotificationCenter::defaultActionIdentifier);
    machine.skip();
    machine.skip();
    EXPECT_NE(notice(2), "");
    snooze(2);
    pass(300s);
    EXPECT_THAT(notice(3), testing::StartsWith("0|")) << "what was 3 before the restart is gone";
    press(3, UserNotificationCenter::defaultActionIdentifier);
    EXPECT_TRUE(becomes([&] { return activations > 0; }));
    EXPECT_EQ(activations, 1) << "another program's notification has the number of an old one";

    snooze(2);
    const auto process = static_cast<pid_t>(server->id());
    ::kill(process, SIGSTOP);
    pass(300s);
    machine.skip();
    pass(100ms);
    ::kill(process, SIGCONT);
    EXPECT_THAT(notice(4), testing::HasSubstr("Your break begins")) << "the reminder was taken back meanwhile";
}

TEST_F(NotificationServerTests, SaysWhatTheServerCanShowAndLeavesNothingBehind)
{
    int presses = 0;
    for (const auto &[capabilities, shown] :
         {std::pair("", "0|T: a < b &||"), std::pair("body", "0|T|a < b &|"),
          std::pair("body\\nbody-markup\\nactions", "0|T|a &lt; b &amp;|default,Tomcatto,do,Do it")}) {
        const auto server = startServer(QString::fromLatin1(capabilities));
        {
            FreedesktopNotificationCenter own(m_bus.connection(), runLoop);
            own.setDelegate(&service);
            own.setNotificationCategories(
                {{QStringLiteral("kind"), {{QStringLiteral("do"), QStringLiteral("Do it")}}}});
            own.add({QStringLiteral("id"), QStringLiteral("T"), QStringLiteral("a < b &"), QStringLiteral("kind"), {}});
            EXPECT_EQ(notice(1), shown);
            press(1, UserNotificationCenter::defaultActionIdentifier);
            ++presses;
            EXPECT_TRUE(becomes([&] { return activations == presses; }));
        }
        EXPECT_TRUE(becomes([&] { return calls(QStringLiteral("CloseNotification")).size() == 1; }));
        server->stop();
        EXPECT_TRUE(becomes([&] { return !m_test.interface()->isServiceRegistered(name); }));
    }
}

}
