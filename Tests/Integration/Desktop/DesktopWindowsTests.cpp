#include "Platform/Qt/CoveringWindows.h"
#include "Platform/Qt/HintWindow.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/X11/X11ClickMonitor.h"
#include "Platform/X11/X11TaskbarPresence.h"
#include "TestScreen.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

using namespace tomcatto;

TEST(X11TaskbarPresenceTests, ListsOrdinaryWindowsWhileTheApplicationIsARegularOne)
{
    X11TaskbarPresence presence;
    QWindow window, tool;
    tool.setFlags(Qt::FramelessWindowHint);
    const auto isListed = [](const QWindow &shown) {
        return !windowStates(const_cast<QWindow &>(shown).winId()).contains(QLatin1String("SKIP_TASKBAR"));
    };
    for (QWindow *each : {&window, &tool})
        each->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&tool));
    EXPECT_FALSE(isListed(window));
    presence.setPolicy(ActivationPolicyKind::regular);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isListed(window); }));
    EXPECT_FALSE(isListed(tool));
    presence.setPolicy(ActivationPolicyKind::accessory);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isListed(window); }));
    // The window manager forgets it with the window.
    window.hide();
    QTest::qWait(100);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_FALSE(isListed(window));
}

TEST(X11ClickMonitorTests, SeesPressesAnywhereWhileSubscribed)
{
    // A window of another program, which takes its clicks for itself.
    const SideProgram other(QStringLiteral("xev"), QStringLiteral("-geometry 200x200+300+300").split(u' '));
    outputOf(QStringLiteral("xdotool"), QStringLiteral("search --sync --onlyvisible --name Tester").split(u' '));
    X11ClickMonitor monitor;
    std::vector<QPoint> places, secondPlaces;
    Cancellable first = monitor.onPressed([&](QPoint place) { places.push_back(place); });
    Cancellable second = monitor.onPressed([&](QPoint place) { secondPlaces.push_back(place); });
    usePointer(QStringLiteral("mousemove 400 400 click 1 click 4 click 3"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return places.size() == 2; }));
    first.cancel();
    usePointer(QStringLiteral("mousemove 20 700 click 1"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return secondPlaces.size() == 3; }));
    second.cancel();
    usePointer(QStringLiteral("click 1"));
    QTest::qWait(100);
    EXPECT_THAT(places, testing::ElementsAre(QPoint(400, 400), QPoint(400, 400)));
    EXPECT_THAT(secondPlaces, testing::ElementsAre(QPoint(400, 400), QPoint(400, 400), QPoint(20, 700)));
}

TEST(HintWindowTests, ComesUpWhereThePointerRestsInsideTheScreenAndFollowsItsWords)
{
    HintWindow hint;
    hint.setDark(true);
    hint.setText(QStringLiteral("Focus"));
    hint.pointerAt({100, 100});
    hint.hide();
    hint.pointerAt({1278, 790});
    EXPECT_FALSE(hint.isShown());
    ASSERT_TRUE(QTest::qWaitFor([&] { return hint.isShown(); }));
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const QWindow &window = **std::ranges::find(windows, Qt::ToolTip, &QWindow::type);
    EXPECT_EQ(window.geometry().right(), 1279);
    EXPECT_LT(window.geometry().bottom(), 790) << "above the pointer, which is at the lower edge";
    const auto paper = [&window] {
        const QPoint inside = window.geometry().topLeft() + QPoint(2, 2);
        return qApp->primaryScreen()->grabWindow(0, inside.x(), inside.y(), 1, 1).toImage().pixel(0, 0);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return paper() == 0xFF2C2420; }));
    const int width = window.width();
    hint.setText(QStringLiteral("Focus, 24 minutes left"));
    EXPECT_GT(window.width(), width);
    EXPECT_EQ(window.geometry().right(), 1279);
    hint.setText({});
    EXPECT_FALSE(hint.isShown());

    hint.setText(QStringLiteral("Focus"));
    hint.dismiss();
    hint.pointerAt({100, 100});
    QTest::qWait(1000);
    EXPECT_FALSE(hint.isShown()) << "it would lie over what the press opened";
    hint.hide();
    hint.pointerAt({100, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hint.isShown(); }));
}

TEST(CoveringWindowsTests, GivesTheKeyboardToOneOfItsWindowsAndTakesItBack)
{
    QtMainRunLoop runLoop;
    const X11WindowSystem windowSystem;
    CoveringWindows covering(runLoop, windowSystem);
    QWindow main, second;
    for (QWindow *window : {&main, &second}) {
        covering.cover(*window, QGuiApplication::primaryScreen()->geometry());
        covering.makeKey(*window);
    }
    covering.makeKey(main);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&main) && QTest::qWaitForWindowExposed(&second));
    const auto hasKeyboard = [&main] { return QGuiApplication::focusWindow() == &main; };
    QTest::qWait(300);
    EXPECT_TRUE(QTest::qWaitFor(hasKeyboard));
    bool wasLost = false;
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &covering,
                     [&wasLost](const QWindow *focused) { wasLost = wasLost || !focused; });
    const SideProgram other(QStringLiteral("xev"), {});
    EXPECT_TRUE(QTest::qWaitFor([&wasLost] { return wasLost; }, 20'000));
    EXPECT_TRUE(QTest::qWaitFor(hasKeyboard));
    // Also from a window of its own, until it covers no more.
    QWindow own;
    own.setFlags(Qt::Tool | Qt::WindowStaysOnTopHint);
    const auto activate = [&own] {
        bool hadKeyboard = false;
        const auto watching = QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged,
                                               [&](const QWindow *focused) { hadKeyboard |= focused == &own; });
        own.show();
        own.requestActivate();
        EXPECT_TRUE(QTest::qWaitFor([&hadKeyboard] { return hadKeyboard; }));
        QObject::disconnect(watching);
    };
    activate();
    EXPECT_TRUE(QTest::qWaitFor(hasKeyboard));
    for (QWindow *window : {&main, &second})
        covering.uncover(*window);
    activate();
    QTest::qWait(3 * static_cast<int>(CoveringWindows::returnTime.count()));
    EXPECT_EQ(QGuiApplication::focusWindow(), &own);
    EXPECT_THAT(windowStates(main.winId()).toStdString(), testing::HasSubstr("_NET_WM_STATE_ABOVE"));
}
