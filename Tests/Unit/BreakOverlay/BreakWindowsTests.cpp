#include "BreakOverlay/BreakOverlayWindows.h"
#include "BreakOverlay/BreakPreviewController.h"
#include "Fakes/EngineFixture.h"
#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeOverlay.h"
#include "Fakes/FakeViewHost.h"
#include "Platform/Qt/ApplicationKeyMonitor.h"

#include <gtest/gtest.h>
#include <QtCore/QVariantAnimation>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>

namespace tomcatto {
namespace {

using namespace Qt::StringLiterals;

struct Windows : EngineFixture
{
    FakeViewHost host{runLoop};
    ViewWindows viewWindows{host, runLoop};
    LanguageOverrideService language{defaults, {u"en"_s}};
    LocalizedStrings strings{language};
    FakeActivationPolicyPort policyPort;
    ActivationPolicy policy{policyPort};
    int finished = 0;
    BreakVideoSource videos{{}, [this] { ++finished; }};
};

TEST(BreakOverlayWindows, LetViewsGoInALaterTurnAndTheFilesWithTheLast)
{
    Windows fixture;
    BreakOverlayWindows windows({fixture.machine, fixture.timer, fixture.settings, fixture.strings},
                                fixture.viewWindows, fixture.videos);
    int closed = 0;
    auto first = windows.make({u"a"_s, {}, 1, true}, [&closed] { ++closed; });
    QCloseEvent closing;
    QCoreApplication::sendEvent(fixture.host.current, &closing);
    fixture.runLoop.drain();
    EXPECT_EQ(closed, 1);
    auto second = windows.make({u"b"_s, {}, 1, false}, {});
    EXPECT_TRUE(fixture.host.last.properties.value(u"viewModel"_s).value<BreakContentModel *>()->isMuted())
        << "only the main screen is heard";
    first.reset();
    EXPECT_EQ(fixture.finished, 0);
    second.reset();
    EXPECT_EQ(fixture.finished, 1);
    EXPECT_EQ(fixture.host.alive, 2) << "the closing call may come from a view";
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 0);

    fixture.host.isBroken = true;
    EXPECT_EQ(windows.make({u"a"_s, {}, 1, true}, {}), nullptr);
    EXPECT_EQ(fixture.finished, 1);
}

TEST(BreakOverlayWindows, FadeInAndOutWhereTheDesktopCan)
{
    Windows fixture;
    fixture.host.setFading(true);
    fixture.host.properties = {{"inTime", 400}, {"outTime", 250}};
    BreakOverlayWindows windows({fixture.machine, fixture.timer, fixture.settings, fixture.strings},
                                fixture.viewWindows, fixture.videos);
    auto overlay = windows.make({u"a"_s, {}, 1, true}, {});
    QWindow &window = *fixture.host.current;
    window.show();
    // Its time is the test's.
    const auto opacityAt = [&window](int time) {
        auto *fade = window.findChild<QVariantAnimation *>(u"fading"_s);
        fade->pause();
        fade->setCurrentTime(time);
        return window.opacity();
    };
    EXPECT_EQ(opacityAt(0), 0);
    EXPECT_NEAR(opacityAt(200), 0.75, 0.01);
    // The break is over while it still comes.
    overlay.reset();
    EXPECT_NEAR(opacityAt(0), 0.75, 0.01);
    EXPECT_NEAR(opacityAt(125), 0.75 / 4, 0.01);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 1);
    window.findChild<QVariantAnimation *>(u"fading"_s)->resume();
    EXPECT_EQ(opacityAt(250), 0);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 0);
}

TEST(BreakOverlayWindows, KeepWhatTheUserMutedForTheRestOfTheBreak)
{
    Windows fixture;
    BreakOverlayWindows windows({fixture.machine, fixture.timer, fixture.settings, fixture.strings},
                                fixture.viewWindows, fixture.videos);
    std::vector<std::unique_ptr<OverlayWindow>> open;
    const auto model = [&](const QString &screen, bool isMain) {
        open.push_back(windows.make({screen, {}, 1, isMain}, {}));
        return fixture.host.last.properties.value(u"viewModel"_s).value<BreakContentModel *>();
    };
    fixture.machine.start();
    fixture.machine.skip();
    for (const auto &[screen, isMain, isMuted, toggles] : {std::tuple{u"a"_s, true, false, true},
                                                           {u"b"_s, false, true, false},
                                                           {u"a"_s, true, true, false},
                                                           {u"b"_s, true, true, true},
                                                           {u"b"_s, false, false, false},
                                                           {u"c"_s, true, false, false}}) {
        BreakContentModel *const shown = model(screen, isMain);
        EXPECT_EQ(shown->isMuted(), isMuted) << screen.toStdString() << isMain << open.size();
        if (toggles)
            shown->toggleMute();
    }
    model(u"c"_s, true)->toggleMute();
    fixture.machine.skip();
    fixture.machine.skip();
    EXPECT_FALSE(model(u"c"_s, true)->isMuted()) << "the next break is heard again";
}

TEST(BreakPreviewController, HoldsTheTaskbarPlaceUntilItsOneWindowCloses)
{
    Windows fixture;
    BreakPreviewController preview(fixture.settings, fixture.strings, fixture.runLoop, fixture.viewWindows,
                                   fixture.policy);
    preview.open(fixture.videos);
    EXPECT_TRUE(preview.isOpen());
    EXPECT_EQ(fixture.policyPort.kinds.back(), ActivationPolicyKind::regular);
    preview.open(fixture.videos);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 1);
    EXPECT_EQ(fixture.finished, 1);
    EXPECT_EQ(fixture.policy.holders(), 1);

    preview.close();
    EXPECT_FALSE(preview.isOpen());
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 0);
    EXPECT_EQ(fixture.finished, 2);
    EXPECT_EQ(fixture.policyPort.kinds.back(), ActivationPolicyKind::accessory);

    preview.open(fixture.videos);
    fixture.host.current->close();
    fixture.runLoop.drain();
    EXPECT_FALSE(preview.isOpen()) << "the user closed it";
    EXPECT_EQ(fixture.policy.holders(), 0);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.finished, 3);
}

TEST(BreakPreviewController, AwaitsPreviewsUntilALaterOneOpensOrABreakClosesThem)
{
    Windows fixture;
    BreakPreviewController preview(fixture.settings, fixture.strings, fixture.runLoop, fixture.viewWindows,
                                   fixture.policy);
    const int first = preview.await();
    const int second = preview.await();
    EXPECT_TRUE(preview.isAwaited(first)) << "the second one's file may be gone";
    preview.open(fixture.videos, first);
    EXPECT_TRUE(preview.isAwaited(second));
    const int third = preview.await();
    preview.open(fixture.videos, third);
    EXPECT_FALSE(preview.isAwaited(second)) << "its disk was slower";
    const int fourth = preview.await();
    fixture.host.current->close();
    fixture.runLoop.drain();
    EXPECT_TRUE(preview.isAwaited(fourth)) << "the user closed another one";
    preview.close();
    EXPECT_FALSE(preview.isAwaited(fourth)) << "the break may be over when its disk answers";
}

TEST(ApplicationKeyMonitor, SwallowsWhatAHandlerTakesAndMayEndInIt)
{
    struct Window final : QWindow
    {
        void keyPressEvent(QKeyEvent *event) override { keys.append(event->key()); }
        QList<int> keys;
    } window;
    const auto press = [&window](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    ApplicationKeyMonitor monitor;
    int calls = 0;
    Cancellable handle;
    handle = monitor.onKeyDown(Qt::Key_Escape, [&](const KeyPress &) {
        ++calls;
        handle.cancel();
    });
    // As the platform delivers keys: a window's shortcut for one comes before its press.
    int shortcuts = 0;
    const auto type = [&](Qt::Key key) {
        QKeyEvent announced(QEvent::ShortcutOverride, key, Qt::NoModifier);
        announced.ignore();
        QCoreApplication::sendEvent(&window, &announced);
        if (!announced.isAccepted())
            ++shortcuts;
        press(key);
    };
    type(Qt::Key_A);
    type(Qt::Key_Escape);
    EXPECT_EQ(shortcuts, 1) << "what is taken is nobody's shortcut";
    EXPECT_EQ(window.keys, QList<int>{Qt::Key_A}) << "taken once";
    type(Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(window.keys, (QList<int>{Qt::Key_A, Qt::Key_Escape}));
}

}
}
