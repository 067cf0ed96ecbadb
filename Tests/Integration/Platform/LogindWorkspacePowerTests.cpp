#include "Fakes/CapturedLog.h"
#include "Platform/Freedesktop/LogindWorkspacePower.h"
#include "PrivateBus.h"

#include <gmock/gmock.h>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtTest/QTest>

using namespace tomcatto;

namespace {

class LogindWorkspacePowerTests : public testing::Test
{
protected:
    ~LogindWorkspacePowerTests() override { stopLogind(); }

    void startLogind()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), m_bus.address());
        m_logind.setProcessEnvironment(environment);
        m_logind.start(QStringLiteral("/usr/bin/python3"), QStringLiteral("-m dbusmock --template logind").split(u' '));
    }
    void stopLogind()
    {
        m_logind.kill();
        m_logind.waitForFinished();
    }
    [[nodiscard]] QDBusMessage call(const QString &interface, const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"), interface, method);
        message.setArguments(arguments);
        return m_test.call(message);
    }
    /// The inhibitors that logind lists; -1 where one is not as it should be.
    [[nodiscard]] int inhibitors()
    {
        const auto list = call(m_manager, QStringLiteral("ListInhibitors")).arguments().value(0).value<QDBusArgument>();
        int count = 0;
        bool areOurs = true;
        for (list.beginArray(); !list.atEnd(); ++count) {
            QString what, who, why, mode;
            list.beginStructure();
            list >> what >> who >> why >> mode;
            list.endStructure();
            areOurs = areOurs && what + who + mode == QLatin1String("sleepTomcattodelay");
        }
        list.endArray();
        return areOurs ? count : -1;
    }
    [[nodiscard]] bool becomes(int count)
    {
        return QTest::qWaitFor([this, count] { return inhibitors() == count; }, 20'000);
    }
    [[nodiscard]] bool announceSleep(bool isStarting)
    {
        const QVariantList signal{m_manager, QStringLiteral("PrepareForSleep"), QStringLiteral("b"),
                                  QVariantList{isStarting}};
        const auto reply = call(QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("EmitSignal"), signal);
        return reply.type() == QDBusMessage::ReplyMessage;
    }

    QString m_manager = QStringLiteral("org.freedesktop.login1.Manager");
    PrivateBus m_bus;
    QDBusConnection m_test = m_bus.connection();
    QProcess m_logind;
    CapturedLog m_log;
};

}

TEST_F(LogindWorkspacePowerTests, HoldsSleepUpUntilTheHandlersHaveRunAndFollowsARestart)
{
    LogindWorkspacePower power(m_bus.connection());
    std::vector<int> events;
    const Cancellable sleep = power.onWillSleep([&] {
        // What is paused needs no delay any more, but the pause is not on disk yet.
        power.setSleepDelayed(false);
        events.push_back(inhibitors());
        power.setSleepDelayed(true);
    });
    const Cancellable wake = power.onDidWake([&] { events.push_back(100); });
    power.setSleepDelayed(true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_log.count(LogLevel::error) == 1; })) << "there is no logind yet";
    startLogind();
    EXPECT_TRUE(becomes(1));
    EXPECT_TRUE(announceSleep(true));
    EXPECT_TRUE(becomes(0));
    EXPECT_TRUE(announceSleep(false));
    EXPECT_TRUE(becomes(1));
    EXPECT_TRUE(announceSleep(true));
    EXPECT_TRUE(becomes(0));
    // A logind that went in the middle of a sleep announces no wake.
    stopLogind();
    startLogind();
    EXPECT_TRUE(becomes(1));
    EXPECT_THAT(events, testing::ElementsAre(1, 100, 1, 100));
    power.setSleepDelayed(false);
    EXPECT_TRUE(becomes(0));
    EXPECT_EQ(m_log.count(LogLevel::error), 1);
}
