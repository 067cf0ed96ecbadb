#include "BreakOverlay/BreakOverlayController.h"
#include "BreakOverlay/BreakOverlayWindows.h"
#include "BreakOverlay/BreakPreviewController.h"
#include "Fakes/CapturedLog.h"
#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualClock.h"
#include "Fakes/ManualWallClock.h"
#include "Fakes/SequentialIdentifiers.h"
#include "Platform/Qt/ApplicationKeyMonitor.h"
#include "Platform/Qt/DesktopScreens.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/QuickViewHost.h"
#include "PluggedScreens.h"

#include <gmock/gmock.h>
#include <QtTest/QTest>

namespace tomcatto {
namespace {

using namespace Qt::StringLiterals;

/// The overlay as the program builds it, over screens that a test plugs in and out; only time stands still.
struct RealOverlay
{
    RealOverlay()
    {
        machine.start();
        machine.skip();
    }
    /// Every window of the process: its screen, its place and scale, and a star where the keyboard is. Sorted.
    [[nodiscard]] static QStringList windows()
    {
        QStringList shown;
        for (const QWindow *window : QGuiApplication::topLevelWindows()) {
            QString line;
            QDebug(&line).noquote().nospace()
                << window->screen()->name() << ' ' << window->geometry() << " x" << window->devicePixelRatio();
            const bool isOverlay = window->isExposed() && window->title() == u"Short break";
            shown.append(line + (isOverlay ? u""_s : u" hidden"_s) +
                         (window == QGuiApplication::focusWindow() ? u" *"_s : u""_s));
        }
        shown.sort();
        return shown;
    }
    /// Plugs the screens and waits until these are the windows.
    void expectAfter(const std::vector<PluggedScreen> &wanted, const QStringList &expected)
    {
        plugged.plug(wanted);
        EXPECT_TRUE(QTest::qWaitFor([&] { return windows() == expected; })) << windows().join(u'\n').toStdString();
    }

    PluggedScreens plugged;
    CapturedLog log;
    FakeUserDefaults defaults;
    ManualClock clock;
    QtMainRunLoop runLoop;
    SequentialIdentifiers identifiers;
    PomodoroSettings settings{defaults};
    PomodoroTimer timer{clock, runLoop};
    PomodoroStateMachine machine{settings, timer, runLoop, identifiers};
    ManualWallClock wallClock;
    MannersService manners{{machine, timer, defaults, wallClock, runLoop, {}}};
    LanguageOverrideService language{defaults, {u"en"_s}};
    LocalizedStrings strings{language};
    QObject looks;
    WindowSystem windowSystem;
    WindowPlaces places{runLoop, windowSystem};
    QuickViewHost host{looks, strings, places};
    ViewWindows viewWindows{host, runLoop};
    DesktopScreens screens{runLoop};
    ApplicationKeyMonitor keys;
    BreakOverlayWindows overlayWindows{{machine, timer, settings, strings}, viewWindows, {}};
    BreakOverlayController controller{machine, timer, settings, manners, runLoop, screens, keys, overlayWindows};
};

const PluggedScreen left{u"left"_s, {0, 0, 400, 300}};
const PluggedScreen middle{u"middle"_s, {400, 0, 320, 240}, 2};
const PluggedScreen above{u"above"_s, {0, -300, 400, 300}};
const std::vector<PluggedScreen> three{left, middle, above};
const QStringList overThree{u"above QRect(0,-300 400x300) x1"_s, u"left QRect(0,0 400x300) x1 *"_s,
                            u"middle QRect(400,0 320x240) x2"_s};

TEST(OverlayScreensTests, CoversTheScreensThatAreThere)
{
    RealOverlay overlay;
    overlay.expectAfter(three, overThree);
    int reports = 0;
    const Cancellable counting = overlay.screens.onChanged([&reports] { ++reports; });
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        overlay.plugged.plug({});
        reports = 0;
        QTest::qWait(2 * static_cast<int>(ScreenChanges::quietTime.count()));
        EXPECT_EQ(QGuiApplication::screens().size(), 1);
        EXPECT_TRUE(overlay.screens.screens().empty());
        EXPECT_EQ(reports, 0) << "the stand-in is not a screen";

        overlay.expectAfter(three, overThree);
        EXPECT_EQ(reports, 1);
        overlay.expectAfter({middle}, {u"middle QRect(400,0 320x240) x2 *"_s});
        overlay.expectAfter(three, overThree);
    }
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([] { return RealOverlay::windows().isEmpty(); })) << "each went with its screen";
    EXPECT_EQ(overlay.machine.currentPhase(), PomodoroPhase::working);
    EXPECT_EQ(overlay.log.count(LogLevel::error), 0);
}

TEST(OverlayScreensTests, TakesALastScreenWithoutAnOutputForNone)
{
    RealOverlay overlay;
    overlay.expectAfter({left}, {overThree[1]});
    int reports = 0;
    const Cancellable counting = overlay.screens.onChanged([&reports] { ++reports; });
    const PluggedScreen outputless{u":0.0"_s, {0, 0, 64, 64}};
    overlay.plugged.plug({left, outputless});
    overlay.plugged.plug({outputless});
    QTest::qWait(2 * static_cast<int>(ScreenChanges::quietTime.count()));
    EXPECT_TRUE(overlay.screens.screens().empty());
    EXPECT_EQ(reports, 0);
    overlay.plugged.plug({left, outputless});
    overlay.expectAfter({left}, {overThree[1]});
}

TEST(BreakPreviewTests, IsAnOrdinaryWindowThatEscCloses)
{
    struct NoPolicy final : ActivationPolicyPort
    {
        void setPolicy(ActivationPolicyKind) override {}
    } port;
    RealOverlay overlay;
    overlay.expectAfter({left}, {overThree[1]});
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([] { return RealOverlay::windows().isEmpty(); }));
    overlay.plugged.plug({{u"wide"_s, {0, 0, 1600, 1000}}});
    ActivationPolicy policy(port);
    BreakPreviewController preview(overlay.settings, overlay.strings, overlay.runLoop, overlay.viewWindows, policy);
    preview.open({});
    ASSERT_EQ(QGuiApplication::topLevelWindows().size(), 1);
    QWindow *const window = QGuiApplication::topLevelWindows().constFirst();
    EXPECT_EQ(window->title(), u"Break preview");
    EXPECT_EQ(window->size(), QSize(1280, 720));
    EXPECT_EQ(window->minimumSize(), QSize(720, 405));
    EXPECT_FALSE(window->flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_A);
    window->setProperty("escClosesWindow", false);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(preview.isOpen());
    window->setProperty("escClosesWindow", true);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&preview] { return !preview.isOpen(); }));
    EXPECT_EQ(overlay.machine.currentPhase(), PomodoroPhase::working) << "it has nothing to do with the timer";
}

TEST(OverlayScreensTests, FollowsAScreenThatChangesWhileItIsCovered)
{
    RealOverlay overlay;
    overlay.expectAfter({left, middle}, {overThree[1], overThree[2]});
    const PluggedScreen larger{u"left"_s, {0, 0, 1024, 700}};
    overlay.expectAfter({larger, middle}, {u"left QRect(0,0 1024x700) x1 *"_s, overThree[2]});
    const PluggedScreen finer{u"left"_s, {0, 0, 512, 350}, 2};
    overlay.expectAfter({finer, middle}, {u"left QRect(0,0 512x350) x2 *"_s, overThree[2]});
    const PluggedScreen sharper{u"left"_s, {0, 0, 512, 350}, 4};
    overlay.expectAfter({sharper, middle}, {u"left QRect(0,0 512x350) x4 *"_s, overThree[2]});
    const PluggedScreen moved{u"left"_s, {100, 480, 512, 350}, 4};
    overlay.expectAfter({moved, middle}, {u"left QRect(100,480 512x350) x4 *"_s, overThree[2]});
    overlay.expectAfter({middle, moved}, {u"left QRect(100,480 512x350) x4"_s, u"middle QRect(400,0 320x240) x2 *"_s});
}

}
}
