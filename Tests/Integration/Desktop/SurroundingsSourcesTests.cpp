#include "MockedBus.h"
#include "Platform/Freedesktop/LogindLock.h"
#include "Platform/Freedesktop/MutterRest.h"
#include "Platform/Freedesktop/ScreenSaverLock.h"
#include "Platform/X11/X11FullScreen.h"
#include "Platform/X11/X11Rest.h"
#include "ToldFacts.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVirtualObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace tomcatto {

using enum Fact;

namespace {

/// A service of a desktop that answers as a test wants.
class MockService final : public QDBusVirtualObject
{
public:
    using Method = std::function<QVariant(const QVariant &argument)>;

    MockService(const QDBusConnection &bus, QString name)
        : m_bus(bus)
        , m_name(std::move(name))
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    }
    void setThere(bool isThere)
    {
        EXPECT_TRUE(isThere ? m_bus.registerService(m_name) : m_bus.unregisterService(m_name));
    }
    void signal(const QString &path, const QString &interface, const QString &name, const QVariantList &arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    /// An answer that is not valid is an error.
    std::map<QString, Method> methods;

private:
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/) override
    {
        const QVariant answer = methods[message.member()](message.arguments().value(0));
        return m_bus.send(answer.isValid() ? message.createReply(answer)
                                           : message.createErrorReply(QDBusError::Failed, QStringLiteral("No")));
    }

    QDBusConnection m_bus;
    QString m_name;
};

/// Tells a lock with `change`, through a restart of its service.
void expectLockFollows(FactSource &source, MockService &service, const std::function<void(bool)> &change)
{
    ToldFacts told(source);
    EXPECT_TRUE(told.becomes(untold));
    service.setThere(true);
    EXPECT_TRUE(told.becomes(no));
    change(true);
    EXPECT_TRUE(told.becomes(yes));
    service.setThere(false);
    service.setThere(true);
    change(false);
    EXPECT_TRUE(told.becomes(no));
    EXPECT_THAT(told.facts, ElementsAre(untold, no, yes, no)) << "a restart is not an unlocked screen";
}

/// An X server of its own, named by DISPLAY meanwhile.
struct OtherServer
{
    OtherServer() { qputenv("DISPLAY", ':' + program.nextLine()); }
    ~OtherServer() { qputenv("DISPLAY", display); }

    QByteArray display = qgetenv("DISPLAY");
    SideProgram program{QStringLiteral("Xvfb"), QStringLiteral("-displayfd 1 -noreset -nolisten tcp").split(u' ')};
};

/// A window of another client: a full-screen one, or an ordinary one of this application's class.
struct OtherWindow
{
    explicit OtherWindow(bool isFullScreen)
    {
        xcb_connection_t *const connection = access.connection();
        const X11Display display(connection);
        xcb_create_window(connection, 0, id, display.root(), 0, 0, 9, 9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0,
                          nullptr);
        const xcb_atom_t state = display.atom("_NET_WM_STATE_FULLSCREEN");
        const QByteArray texts = QByteArray("other") + '\0' + QCoreApplication::applicationName().toUtf8() + '\0';
        if (isFullScreen)
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, display.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                                1, &state);
        else
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                                static_cast<uint32_t>(texts.size()), texts.constData());
        xcb_map_window(connection, id);
        xcb_flush(connection);
    }
    [[nodiscard]] bool isActive() const
    {
        return outputOf(QStringLiteral("xdotool"), {QStringLiteral("getactivewindow")}).toUInt() == id;
    }

    X11Access access;
    xcb_window_t id = xcb_generate_id(access.connection());
};

class SurroundingsSourcesTests : public MockedBus
{
};

}

TEST_F(SurroundingsSourcesTests, ALockIsWhatLogindsHintOfThisSessionSays)
{
    const QString path = QStringLiteral("/org/freedesktop/login1/session/_35");
    bool isLocked = false;
    MockService logind(m_test, QStringLiteral("org.freedesktop.login1"));
    logind.methods[QStringLiteral("GetSession")] = [&](const QVariant &name) {
        return name == QLatin1String("auto") ? QVariant::fromValue(QDBusObjectPath(path)) : QVariant();
    };
    logind.methods[QStringLiteral("Get")] = [&](const QVariant &) {
        return QVariant::fromValue(QDBusVariant(isLocked));
    };
    qputenv("XDG_SESSION_ID", "ended");
    LogindLock lock(m_bus.connection());
    expectLockFollows(lock, logind, [&](bool isNow) {
        isLocked = isNow;
        logind.signal(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                      {QStringLiteral("org.freedesktop.login1.Session"),
                       QVariantMap{{QStringLiteral("LockedHint"), isNow}}, QStringList()});
    });
    qunsetenv("XDG_SESSION_ID");
}

TEST_F(SurroundingsSourcesTests, ALockIsWhatAScreenSaverSays)
{
    const QString name = QStringLiteral("org.gnome.ScreenSaver");
    bool isActive = false;
    MockService saver(m_test, name);
    saver.methods[QStringLiteral("GetActive")] = [&](const QVariant &) { return QVariant(isActive); };
    ScreenSaverLock lock(m_bus.connection(), name);
    expectLockFollows(lock, saver, [&](bool isNow) {
        isActive = isNow;
        saver.signal(QStringLiteral("/org/gnome/ScreenSaver"), name, QStringLiteral("ActiveChanged"), {isNow});
    });
}

TEST_F(SurroundingsSourcesTests, MutterIsAskedWhenItsWatchesGoOffAndLosesNoTouch)
{
    const QString name = QStringLiteral("org.gnome.Mutter.IdleMonitor");
    qulonglong idle = 0;
    bool isTouchedMeanwhile = true;
    QList<uint> watches;
    uint last = 0;
    int asked = 0;
    MockService monitor(m_test, name);
    const auto add = [&] { return QVariant(watches.emplaceBack(++last)); };
    monitor.methods[QStringLiteral("GetIdletime")] = [&](const QVariant &) { return ++asked, QVariant(idle); };
    monitor.methods[QStringLiteral("AddIdleWatch")] = [&](const QVariant &rest) {
        return rest.toULongLong() == 3000 ? add() : QVariant();
    };
    monitor.methods[QStringLiteral("AddUserActiveWatch")] = [&](const QVariant &) {
        if (std::exchange(isTouchedMeanwhile, false))
            idle = 0;
        return add();
    };
    monitor.methods[QStringLiteral("RemoveWatch")] = [&](const QVariant &watch) {
        watches.removeOne(watch.toUInt());
        return QVariant(true);
    };
    const auto fire = [&](uint watch, qulonglong now) {
        idle = now;
        monitor.signal(QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core"), name, QStringLiteral("WatchFired"),
                       {watch});
    };
    MutterRest rest(m_bus.connection(), 3s);
    monitor.setThere(true);
    ToldFacts told(rest);
    EXPECT_TRUE(told.becomes(no));
    fire(1, 3000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.facts.size() == 3; })) << "yes and no, by the touch meanwhile";
    fire(1, 3000);
    EXPECT_TRUE(told.becomes(yes));
    fire(2, 0);
    EXPECT_TRUE(told.becomes(no));
    asked = 0;
    monitor.setThere(false);
    monitor.setThere(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return last == 3; })) << "a compositor that came anew knows of nothing";
    watches = {3};
    fire(3, 4000);
    EXPECT_TRUE(told.becomes(yes));
    EXPECT_TRUE(QTest::qWaitFor([&] { return watches.size() == 2; }));
    EXPECT_THAT(told.facts, ElementsAre(no, yes, no, yes, no, yes));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 3; })) << "the second watch has been noted";
    told.watch.cancel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return watches.isEmpty(); }));
}

TEST(X11RestTests, SeveralLengthsAreToldFromTheLastTouchOn)
{
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
    const auto before = openFiles();
    X11Rest brief(200ms);
    X11Rest longer(1000ms);
    X11Rest endless(1h);
    {
        ToldFacts told(brief);
        ToldFacts later(longer);
        ToldFacts never(endless);
        EXPECT_TRUE(told.becomes(yes) && later.becomes(yes));
        told.facts.clear();
        usePointer(QStringLiteral("mousemove_relative 3 3"));
        EXPECT_TRUE(later.becomes(no) && told.becomes(yes) && later.becomes(yes));
        EXPECT_THAT(told.facts, ElementsAre(no, yes));
        EXPECT_THAT(never.facts, ElementsAre(no));
    }
    EXPECT_EQ(openFiles(), before) << "nothing is open while nobody watches";
}

TEST(X11FullScreenTests, IsOfAnotherProgramAndOutlivesALookAtOwnWindows)
{
    X11FullScreen source;
    ToldFacts told(source);
    EXPECT_TRUE(told.becomes(no));
    QWindow own;
    const auto activateOwn = [&own] {
        own.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&own));
        EXPECT_NE(windowStates(own.winId()), QString());
    };
    own.showFullScreen();
    activateOwn();
    EXPECT_EQ(told.facts.back(), no);
    {
        const OtherWindow other(true);
        EXPECT_TRUE(told.becomes(yes));
        const OtherWindow companions(false);
        EXPECT_TRUE(QTest::qWaitFor([&companions] { return companions.isActive(); }));
        activateOwn();
        own.close();
        EXPECT_THAT(told.facts, ElementsAre(no, yes));
    }
    EXPECT_TRUE(told.becomes(no)) << "the other program ended";
}

TEST(X11FullScreenTests, IsUntoldWithoutAWindowManagerAndBothAreWithoutAServer)
{
    OtherServer server;
    X11FullScreen source;
    X11Rest rest(1h);
    ToldFacts told(source);
    ToldFacts rested(rest);
    EXPECT_TRUE(told.becomes(untold) && rested.becomes(no));
    {
        const SideProgram manager(QStringLiteral("openbox"), {});
        EXPECT_TRUE(told.becomes(no));
    }
    EXPECT_TRUE(told.becomes(untold));
    const SideProgram manager(QStringLiteral("openbox"), {});
    EXPECT_TRUE(told.becomes(no));
    server.program.stop();
    EXPECT_TRUE(told.becomes(untold) && rested.becomes(untold));
    ToldFacts refused(rest);
    EXPECT_TRUE(refused.becomes(untold));
}

}
