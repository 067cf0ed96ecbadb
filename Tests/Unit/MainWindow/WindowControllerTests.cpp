#include "Fakes/FakeViewHost.h"
#include "Fakes/MainWindowFixture.h"
#include "MainWindow/AppMenuCommands.h"
#include "MainWindow/MainWindowController.h"

#include <gtest/gtest.h>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>

namespace tomcatto {

namespace {

class WindowController : public testing::Test
{
protected:
    MainWindowFixture fixture;
    FakeViewHost viewHost{fixture.engine.runLoop};
    ViewWindows windows{viewHost, fixture.engine.runLoop};
    FakeActivationPolicyPort port;
    ActivationPolicy policy{port};
    MainWindowRouter router;
    MainWindowController controller{windows, router, policy, fixture.window};
};

}

TEST_F(WindowController, HoldsTheDockFromActivationUntilClosing)
{
    router.open(MainWindowPage::general);
    ASSERT_TRUE(controller.isOpen());
    EXPECT_EQ(fixture.window.page(), QStringLiteral("general"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewHost.current));
    EXPECT_TRUE(controller.mainWindowHoldsDock());

    router.open(MainWindowPage::about);
    EXPECT_EQ(viewHost.made, 1) << "the window that is there comes to the front";
    EXPECT_EQ(policy.holders(), 1);

    router.open(MainWindowPage::general);
    fixture.shortcuts.record(QStringLiteral("skip"));
    EXPECT_TRUE(fixture.shortcutsService.isSuspended());
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(fixture.shortcutsService.isSuspended()) << "keys for another window are not recorded";
    fixture.loginItem.current = LoginItemStatus::enabled;
    viewHost.current->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewHost.current));
    EXPECT_TRUE(fixture.engine.settings.launchAtLogin()) << "changed in the system's settings meanwhile";
    EXPECT_EQ(policy.holders(), 1);

    viewHost.current->close();
    fixture.engine.runLoop.drain();
    EXPECT_FALSE(controller.isOpen());
    EXPECT_FALSE(controller.mainWindowHoldsDock());
    EXPECT_EQ(port.kinds.back(), ActivationPolicyKind::accessory);
}

TEST_F(WindowController, OpensOnThePageShownLast)
{
    controller.openWindow();
    fixture.window.showPage(QStringLiteral("statistics"));
    fixture.window.showPage(QStringLiteral("nowhere"));
    fixture.shortcuts.record(QStringLiteral("skip"));
    controller.closeWindow();
    EXPECT_FALSE(fixture.shortcutsService.isSuspended());
    router.open();
    EXPECT_TRUE(controller.isOpen());
    EXPECT_EQ(fixture.window.currentPage(), MainWindowPage::statistics);
}

TEST_F(WindowController, FitsASmallScreen)
{
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    viewHost.size = {room.width() / 2, room.height()};
    controller.openWindow();
    EXPECT_EQ(viewHost.current->width(), viewHost.size.width());
    EXPECT_LT(viewHost.current->height(), room.height() - 20) << "the title bar has room too";
}

TEST_F(WindowController, MenuCommandsLeadToTheWindow)
{
    int closed = 0;
    int quit = 0;
    const AppMenuCommands menu(router,
                               {[this] { controller.openWindow(); }, [&closed] { ++closed; }, [&quit] { ++quit; }});
    menu.about()();
    EXPECT_TRUE(controller.isOpen());
    EXPECT_EQ(fixture.window.currentPage(), MainWindowPage::about);
    for (const MenuCommand &command : menu.commands()) {
        EXPECT_NE(fixture.strings.text(command.titleKey), command.titleKey);
        menu.perform(command.titleKey);
    }
    EXPECT_EQ(fixture.window.currentPage(), MainWindowPage::timer);
    menu.perform(QStringLiteral("menu"));
    EXPECT_EQ(closed + quit, 2);
}

}
