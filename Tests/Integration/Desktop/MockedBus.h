#pragma once

#include "Integration/Platform/PrivateBus.h"
#include "TestScreen.h"

#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>

namespace tomcatto {

/// A bus of its own with mocked services on it.
class MockedBus : public testing::Test
{
protected:
    /// Starts a mocked service and waits until it is there.
    [[nodiscard]] std::unique_ptr<SideProgram> startMock(const QString &arguments, const QString &service)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
        auto mock = std::make_unique<SideProgram>(
            QStringLiteral("/usr/bin/python3"), (QStringLiteral("-m dbusmock ") + arguments).split(u' '), environment);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_test.interface()->isServiceRegistered(service); }, 20'000));
        return mock;
    }
    QDBusMessage call(const QString &service, const QString &path, const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Mock"), method);
        message.setArguments(arguments);
        const QDBusMessage reply = m_test.call(message);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
        return reply;
    }

    PrivateBus m_bus;
    QDBusConnection m_test = m_bus.connection();
};

}
