#include "BreakOverlay/BreakOverlayWindows.h"
#include "BreakOverlay/BreakPreviewController.h"
#include "Fakes/EngineFixture.h"
#include "Fakes/FakeOverlay.h"
#include "Fakes/FakeViewHost.h"
#include "Platform/Overlay/ApplicationKeyMonitor.h"

#include <gtest/gtest.h>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>

namespace tomcatto {
namespace {

using namespace Qt::StringLiterals;

struct NotedPolicy final : ActivationPolicyPort
{
    void setPolicy(ActivationPolicyKind policy) override { kind = policy; }
    ActivationPolicyKind kind = ActivationPolicyKind::regular;
};

struct Windows : EngineFixture
{
    FakeViewHost host;
    FakeScreens screens{runLoop};
    LanguageOverrideService language{defaults, {u"en"_s}};
    LocalizedStrings strings{language};
    NotedPolicy policyPort;
    ActivationPolicy policy{policyPort};
    int finished = 0;
    BreakVideoSource videos{{}, {}, [this] { ++finished; }};
};

TEST(BreakOverlayWindows, LetViewsGoInALaterTurnAndTheFilesWithTheLast)
{
    Windows fixture;
    BreakOverlayWindows windows({fixture.machine, fixture.timer, fixture.settings, fixture.strings}, fixture.strings,
                                fixture.host, fixture.screens, fixture.runLoop, fixture.videos);
    int closed = 0;
    auto first = windows.make({u"a"_s, {}, 1, true}, [&closed] { ++closed; });
    QCloseEvent closing;
    QCoreApplication::sendEvent(fixture.host.current, &closing);
    EXPECT_EQ(closed, 1);
    auto second = windows.make({u"b"_s, {}, 1, false}, {});
    EXPECT_EQ(fixture.screens.covered, (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(fixture.host.last.properties.value(u"viewModel"_s).value<BreakContentModel *>()->isMuted())
        << "only the main screen is heard";
    first.reset();
    EXPECT_EQ(fixture.finished, 0);
    second.reset();
    EXPECT_EQ(fixture.finished, 1);
    EXPECT_EQ(fixture.host.alive, 2) << "whoever closes may be inside a view";
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.host.alive, 0);

    fixture.host.isBroken = true;
    EXPECT_EQ(windows.make({u"a"_s, {}, 1, true}, {}), nullptr);
    EXPECT_EQ(fixture.finished, 1);
}

TEST(BreakPreviewController, HoldsTheTaskbarPlaceUntilItsOneWindowCloses)
{
    Windows fixture;
    BreakPreviewController preview(fixture.settings, fixture.strings, fixture.runLoop, fixture.host, fixture.policy);
    preview.open(fixture.videos);
    EXPECT_TRUE(preview.isOpen());
    EXPECT_EQ(fixture.policyPort.kind, ActivationPolicyKind::regular);
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
    EXPECT_EQ(fixture.policyPort.kind, ActivationPolicyKind::accessory);

    preview.open(fixture.videos);
    fixture.host.current->hide();
    EXPECT_FALSE(preview.isOpen()) << "the user closed it";
    EXPECT_EQ(fixture.policy.holders(), 0);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.finished, 3);

    fixture.host.isBroken = true;
    preview.open(fixture.videos);
    fixture.runLoop.drain();
    EXPECT_EQ(fixture.finished, 4);
}

TEST(BreakPreviewController, EndsItsWindowsWithItself)
{
    Windows fixture;
    {
        BreakPreviewController preview(fixture.settings, fixture.strings, fixture.runLoop, fixture.host,
                                       fixture.policy);
        preview.open(fixture.videos);
        preview.open(fixture.videos);
    }
    EXPECT_EQ(fixture.host.alive, 0) << "at the end of the process no later turn comes";
    EXPECT_EQ(fixture.finished, 2);
    fixture.runLoop.drain();
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
    handle = monitor.onKeyDown([&](const KeyPress &key) {
        ++calls;
        if (key.key != Qt::Key_Escape)
            return false;
        handle.cancel();
        return true;
    });
    press(Qt::Key_A);
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(window.keys, (QList<int>{Qt::Key_A, Qt::Key_Escape}));
}

}
}
