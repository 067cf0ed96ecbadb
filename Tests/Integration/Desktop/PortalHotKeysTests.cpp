#include "MockedBus.h"
#include "Platform/Freedesktop/PortalHotKeys.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVirtualObject>

using namespace std::chrono_literals;

namespace tomcatto {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// A portal that answers as a test wants, and notes what it was asked.
class MockPortal final : public QDBusVirtualObject
{
public:
    enum class Manner { binds, bindsNone, refuses, silent, fails };

    explicit MockPortal(const QDBusConnection &bus)
        : m_bus(bus)
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        m_bus.registerService(portalService);
    }
    ~MockPortal() override
    {
        m_bus.unregisterService(portalService);
        m_bus.unregisterObject(QStringLiteral("/"));
    }

    void activate(const QString &inSession, const QString &id)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            portalPath, QStringLiteral("org.freedesktop.portal.GlobalShortcuts"), QStringLiteral("Activated"));
        signal << QDBusObjectPath(inSession) << id << qulonglong{0} << QVariantMap();
        m_bus.send(signal);
    }

    Manner manner = Manner::binds;
    QString session;
    QStringList triggers;
    int closed = 0;

private:
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/) override
    {
        if (message.member() == QLatin1String("Get"))
            return m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(1U))));
        if (message.member() == QLatin1String("Close"))
            return ++closed > 0;
        if (manner == Manner::fails)
            return m_bus.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("No")));
        const auto options = qdbus_cast<QVariantMap>(message.arguments().constLast());
        const QString request = portalPath + QStringLiteral("/request/") +
                                message.service().mid(1).replace(u'.', u'_') + u'/' +
                                options.value(QStringLiteral("handle_token")).toString();
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        if (message.member() == QLatin1String("CreateSession")) {
            session = portalPath + QStringLiteral("/session/") + QString::number(++m_sessions);
            respond(request, 0, {{QStringLiteral("session_handle"), session}});
        } else if (manner != Manner::silent) {
            noteTriggers(message.arguments().at(1).value<QDBusArgument>());
            const QVariantMap bound{{QStringLiteral("shortcuts"), message.arguments().at(1)}};
            respond(request, manner == Manner::refuses ? 1 : 0, manner == Manner::binds ? bound : QVariantMap());
        }
        return true;
    }
    void respond(const QString &request, uint outcome, const QVariantMap &results)
    {
        QDBusMessage signal = QDBusMessage::createSignal(request, QStringLiteral("org.freedesktop.portal.Request"),
                                                         QStringLiteral("Response"));
        m_bus.send(signal << outcome << results);
    }
    void noteTriggers(const QDBusArgument &shortcuts)
    {
        triggers.clear();
        for (shortcuts.beginArray(); !shortcuts.atEnd();) {
            QString id;
            QVariantMap properties;
            shortcuts.beginStructure();
            shortcuts >> id >> properties;
            shortcuts.endStructure();
            triggers << id + u' ' + properties.value(QStringLiteral("preferred_trigger")).toString() + u' ' +
                            properties.value(QStringLiteral("description")).toString();
        }
        shortcuts.endArray();
    }

    QDBusConnection m_bus;
    int m_sessions = 0;
};

class PortalHotKeysTest : public MockedBus, public HotKeysDelegate
{
protected:
    void hotKeyPressed(HotKeyIdentifier identifier) override { pressed.push_back(static_cast<int>(identifier.id)); }
    void hotKeyAvailabilityChanged(HotKeyIdentifier identifier, bool isAvailable) override
    {
        news.push_back((isAvailable ? 1 : -1) * static_cast<int>(identifier.id));
    }
    [[nodiscard]] Cancellable take(HotKeys &hotKeys, quint32 id, quint16 keyCode)
    {
        auto taken = hotKeys.registerHotKey(
            {{1, id}, keyCode, KeyModifier::control | KeyModifier::option, QStringLiteral("Something")});
        EXPECT_TRUE(taken);
        return std::move(taken).value_or(Cancellable());
    }
    [[nodiscard]] bool becomes(const HotKeys &hotKeys, HotKeySupport support, const std::vector<int> &expected)
    {
        const bool came = QTest::qWaitFor([&] { return hotKeys.support() == support && news == expected; }, 20'000);
        news.clear();
        return came;
    }

    std::vector<int> pressed;
    std::vector<int> news;
};

}

TEST_F(PortalHotKeysTest, AsksThePortalAndGoesOnAfterItsRestart)
{
    PortalHotKeys hotKeys(m_bus.connection(), {20s, 20s});
    hotKeys.setDelegate(this);
    EXPECT_EQ(hotKeys.support(), HotKeySupport::none);
    const Cancellable space = take(hotKeys, 1, 49);
    auto portal = std::make_unique<MockPortal>(m_test);
    EXPECT_TRUE(becomes(hotKeys, HotKeySupport::works, {1}));
    EXPECT_EQ(portal->triggers, QStringList(QStringLiteral("shortcut1 CTRL+ALT+space Something")));

    const QString former = portal->session;
    Cancellable letter = take(hotKeys, 3, 12);
    EXPECT_FALSE(hotKeys.registerHotKey({{1, 2}, 12, KeyModifier::control | KeyModifier::option, {}}));
    EXPECT_TRUE(becomes(hotKeys, HotKeySupport::works, {1, 3}));
    EXPECT_EQ(portal->closed, 1) << "one session takes its shortcuts once";
    portal->activate(former, QStringLiteral("shortcut1"));
    portal->activate(portal->session, QStringLiteral("shortcut3"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pressed.empty(); }, 20'000));
    EXPECT_EQ(pressed, std::vector{3});

    portal.reset();
    EXPECT_TRUE(becomes(hotKeys, HotKeySupport::none, {}));
    letter.cancel();
    portal = std::make_unique<MockPortal>(m_test);
    EXPECT_TRUE(becomes(hotKeys, HotKeySupport::works, {1}));
    EXPECT_EQ(portal->triggers.size(), 1);
}

TEST_F(PortalHotKeysTest, ARefusalIsToldAndTheNextChangeAsksAgain)
{
    MockPortal portal(m_test);
    for (const auto manner : {MockPortal::Manner::refuses, MockPortal::Manner::silent, MockPortal::Manner::fails}) {
        portal.manner = manner;
        PortalHotKeys hotKeys(m_bus.connection(), {5s, 100ms});
        hotKeys.setDelegate(this);
        Cancellable space = take(hotKeys, 1, 49);
        EXPECT_TRUE(becomes(hotKeys, HotKeySupport::notAsked, {-1})) << static_cast<int>(manner);
        portal.manner = MockPortal::Manner::bindsNone;
        const Cancellable letter = take(hotKeys, 2, 12);
        EXPECT_TRUE(becomes(hotKeys, HotKeySupport::works, {-1, -2}));
        portal.manner = MockPortal::Manner::binds;
        space.cancel();
        EXPECT_TRUE(becomes(hotKeys, HotKeySupport::works, {2}));
    }
}

}
