#include "Fakes/FakeStatusItem.h"
#include "Fakes/FakeViewHost.h"
#include "Fakes/MenuBarFixture.h"
#include "MenuBar/StatusItemController.h"

#include <gtest/gtest.h>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

struct Item : MenuBarFixture
{
    FakeStatusItem item;
    FakeViewHost viewHost{runLoop};
    ViewWindows windows{viewHost, runLoop};
    ManualClickMonitor clicks;
    MainWindowRouter router;
    StatusItemController controller{services, {item, windows, clicks}, router};

    [[nodiscard]] QStringList enabledEntries() const
    {
        QStringList texts;
        for (const TrayMenuEntry &entry : item.menu.entries) {
            if (entry.command && entry.isEnabled)
                texts.append(entry.text);
        }
        return texts;
    }
};

TEST(StatusItemController, DrawsOncePerTurnAndNotWithoutChange)
{
    Item test;
    EXPECT_EQ(test.item.shows, 1);
    EXPECT_EQ(test.item.shown.toolTip, u"Tomcatto"_qs);
    EXPECT_EQ(test.item.shown.accessibleText, u"Tomcatto, 25:00"_qs);
    EXPECT_TRUE(test.item.shown.title.isEmpty());
    const int width = test.item.shown.pill.width();
    test.machine.start();
    test.machine.pause();
    EXPECT_EQ(test.item.shows, 1);
    test.runLoop.drain();
    EXPECT_EQ(test.item.shows, 2);
    test.settings.setSoundEnabled(false);
    test.runLoop.drain();
    EXPECT_EQ(test.item.shows, 2);
    test.settings.setMenuBarStyle(MenuBarStyle::iconOnly);
    test.runLoop.drain();
    EXPECT_LT(test.item.shown.pill.width(), width);
    EXPECT_EQ(test.item.shown.toolTip, u"Tomcatto, 25:00"_qs) << "the time is nowhere else";
}

TEST(StatusItemController, DrawsWhatTheBarAsksFor)
{
    Item test;
    test.item.givenForms = {{24, 48}, std::nullopt, true};
    test.item.formsChanged();
    ASSERT_EQ(test.item.shown.squareIcons.size(), 2U);
    EXPECT_EQ(test.item.shown.squareIcons[1].width(), 48);
    EXPECT_TRUE(test.item.shown.pill.isNull());
    EXPECT_EQ(test.item.shown.toolTip, u"Tomcatto, 25:00"_qs) << "a square has no room for the time";
    test.item.givenForms = {{}, 2.0, false};
    test.item.formsChanged();
    EXPECT_EQ(test.item.shown.pill.height(), 48);
}

TEST(StatusItemController, BreathesShortlyBeforeABreakAndNotWithReducedMotion)
{
    Item test;
    test.item.givenForms = {{24}, 1.0, false};
    test.turnOn({Item::Key::saysWordBefore});
    test.machine.start();
    test.pass(1400s);
    const auto timers = test.runLoop.activeTimers();
    test.pass(70s);
    const int before = test.item.shows;
    const QImage rested = test.item.shown.squareIcons.at(0);
    test.pass(2s);
    EXPECT_NE(test.item.shown.squareIcons.at(0), rested);
    EXPECT_NEAR(test.item.shows - before, 8, 1) << "four a second, the clock's own ones among them";
    test.pass(2s);
    EXPECT_EQ(test.item.shown.squareIcons.at(0), rested);

    test.item.givenForms.isStill = true;
    test.item.formsChanged();
    const int still = test.item.shows;
    test.pass(10s);
    EXPECT_EQ(test.item.shows - still, 10);
    test.item.givenForms.isStill = false;
    test.item.formsChanged();
    test.pass(17s);
    ASSERT_EQ(test.machine.currentPhase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(test.runLoop.activeTimers(), timers) << "nothing goes on";
}

TEST(StatusItemController, MenuFollowsTheTimerAndActs)
{
    Item test;
    EXPECT_EQ(test.enabledEntries(), QStringList({u"Open panel"_qs, u"Start focus"_qs, u"Statistics"_qs, u"Settings"_qs,
                                                  u"Quit Tomcatto"_qs}));
    test.item.pick(u"Start focus"_qs);
    test.runLoop.drain();
    EXPECT_TRUE(test.enabledEntries().contains(u"Pause"_qs));
    EXPECT_TRUE(test.enabledEntries().contains(u"Skip this phase"_qs));
    test.language.setLanguage(SelectedLanguage::de);
    EXPECT_TRUE(test.enabledEntries().contains(u"Anhalten"_qs)) << test.enabledEntries().join(u", "_qs).toStdString();
    test.language.setLanguage(SelectedLanguage::en);
    test.item.pick(u"Add five minutes"_qs);
    EXPECT_EQ(test.machine.currentPlannedSeconds(), 1800);
    test.item.pick(u"Reset"_qs);
    EXPECT_EQ(test.machine.currentPhase(), PomodoroPhase::idle);
    QSignalSpy pages(&test.router, &MainWindowRouter::pageRequested);
    test.item.pick(u"Settings"_qs);
    EXPECT_EQ(pages.count(), 1);
}

TEST(StatusItemController, AClickOnWhatTheMenuNoLongerOffersDoesNothing)
{
    for (const QString &seen : {u"Pause"_qs, u"Skip this phase"_qs, u"Add five minutes"_qs}) {
        Item test;
        const PomodoroStateMachine &machine = test.machine;
        test.settings.setOverflowEnabled(false);
        test.settings.setAutoStartBreaks(false);
        test.item.pick(u"Start focus"_qs);
        test.runLoop.drain();
        const TrayMenuCommand old = test.item.command(seen);
        EXPECT_FALSE(old.phaseToken.isEmpty());
        test.pass(25min);
        test.item.choose(old);
        EXPECT_TRUE(machine.isPhasePending() && machine.currentPhase() == PomodoroPhase::shortBreak)
            << seen.toStdString();
        EXPECT_EQ(machine.currentPlannedSeconds(), 300);
        test.item.pick(u"Start break"_qs);
        EXPECT_FALSE(machine.isPhasePending());
    }
}

TEST(StatusItemController, ShowsTheMenuWhereTheBarDoesNot)
{
    Item test;
    const auto model = [&] { return test.viewHost.last.properties.value(u"viewModel"_qs).value<QObject *>(); };
    const auto keyAt = [&](int line) { return model()->property("lines").toList().at(line).toMap().value(u"key"_qs); };
    test.item.wantMenu({700, 10});
    EXPECT_EQ(test.viewHost.last.component, u"TrayMenuView"_qs);
    EXPECT_FALSE(test.viewHost.current->isVisible()) << "its size is not known";
    QMetaObject::invokeMethod(model(), "fit", Q_ARG(int, 200), Q_ARG(int, 300));
    EXPECT_TRUE(test.viewHost.current->isVisible());
    EXPECT_EQ(test.viewHost.current->geometry(), QRect(500, 10, 200, 300)) << "inside the screen";

    // The open menu follows; a press on the line of before does nothing.
    const QVariant start = keyAt(2);
    test.machine.start();
    test.runLoop.drain();
    EXPECT_NE(keyAt(2), start);
    QMetaObject::invokeMethod(model(), "choose", Q_ARG(QString, start.toString()));
    EXPECT_FALSE(test.machine.isPaused());
    QMetaObject::invokeMethod(model(), "choose", Q_ARG(QString, keyAt(2).toString()));
    EXPECT_TRUE(test.machine.isPaused());
    test.runLoop.drain();
    EXPECT_EQ(test.viewHost.alive, 0) << "chosen, and gone";

    test.item.wantMenu({10, 10});
    test.item.wantMenu({20, 10});
    test.runLoop.drain();
    EXPECT_EQ(test.viewHost.alive, 1) << "one at a time";
    test.clicks.press({500, 500});
    test.runLoop.drain();
    EXPECT_EQ(test.viewHost.alive, 0) << "a press elsewhere";
    for (const auto &open :
         {std::function<void()>([&] { test.controller.showPopover(); }), {[&] { test.controller.closePopover(); }}}) {
        test.item.wantMenu({10, 10});
        open();
        test.runLoop.drain();
        EXPECT_FALSE(test.viewHost.alive > 0 && test.viewHost.last.component == u"TrayMenuView"_qs);
    }
}

TEST(StatusItemController, ThePillIsAChoiceOnlyBesideAnIconAndAllControlsAgree)
{
    Item test;
    QSignalSpy choices(&test.controller, &StatusItemController::pillChoiceChanged);
    EXPECT_FALSE(test.controller.pillChoice()) << "it shows in any case";
    test.item.givenForms.squareSizes = {24};
    test.item.formsChanged();
    EXPECT_EQ(test.controller.pillChoice(), false);
    EXPECT_EQ(test.item.menu.entries.at(9).isChecked, false);
    test.item.pick(u"Show the time at the top edge"_qs);
    EXPECT_EQ(choices.count(), 2);
    EXPECT_EQ(choices.last().first().value<std::optional<bool>>(), true);
    test.controller.setPillWanted(false);
    EXPECT_FALSE(test.item.isPillWanted);
    EXPECT_EQ(test.item.menu.entries.at(9).isChecked, false);
    EXPECT_EQ(choices.last().first().value<std::optional<bool>>(), false);
    test.controller.setPillWanted(true);
    FakeStatusItem next;
    const StatusItemController restarted(test.services, {next, test.windows, test.clicks}, test.router);
    EXPECT_TRUE(next.isPillWanted) << "kept over a restart";
}

TEST(StatusItemController, OpensAtTheItemAndLetsTheViewGoWhenClosed)
{
    Item test;
    QStringList calls;
    test.controller.setOnWillShow([&] { calls.append(u"show"_qs); });
    test.controller.setOnDidClose([&] { calls.append(u"close"_qs); });
    test.item.activate(QRect(400, 0, 60, 24));
    ASSERT_EQ(test.viewHost.alive, 1);
    EXPECT_EQ(test.viewHost.last.component, u"MenubarPanelView"_qs);
    const auto windows = QGuiApplication::topLevelWindows();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.first()->geometry(), QRect(290, 28, 280, 460));
    EXPECT_TRUE(windows.first()->flags().testFlag(Qt::FramelessWindowHint));

    auto *model = test.viewHost.last.properties.value(u"viewModel"_qs).value<QObject *>();
    for (int press = 0; press < 2; ++press)
        QMetaObject::invokeMethod(model, "openStatistics");
    EXPECT_EQ(windows.first()->geometry().size(), QSize(400, 560));
    QMetaObject::invokeMethod(model, "back");
    EXPECT_TRUE(test.controller.isPopoverShown()) << "first to the timer";
    EXPECT_EQ(windows.first()->geometry().size(), QSize(280, 460));
    // From inside the view: it must outlive the call.
    QMetaObject::invokeMethod(model, "back");
    EXPECT_FALSE(test.controller.isPopoverShown());
    EXPECT_EQ(test.viewHost.alive, 1);
    test.runLoop.drain();
    EXPECT_EQ(test.viewHost.alive, 0);
    EXPECT_EQ(calls, QStringList({u"show"_qs, u"close"_qs}));

    test.controller.showStatistics();
    EXPECT_EQ(QGuiApplication::topLevelWindows().first()->size(), QSize(400, 560));
    test.controller.closePopover();
    test.controller.showPopover();
    EXPECT_EQ(test.controller.isPopoverShown(), true);
    test.runLoop.drain();
    EXPECT_EQ(QGuiApplication::topLevelWindows().first()->size(), QSize(280, 460)) << "opens with the timer";
}

TEST(StatusItemController, AClickElsewhereClosesAndTheSameClickDoesNotReopen)
{
    Item test;
    const QRect place(400, 0, 60, 24);
    test.item.activate(place);
    test.clicks.press(QPoint(300, 100));
    test.runLoop.drain();
    EXPECT_TRUE(test.controller.isPopoverShown()) << "inside";
    test.clicks.press(QPoint(410, 10));
    test.runLoop.drain();
    EXPECT_FALSE(test.controller.isPopoverShown());
    test.pass(100ms);
    test.item.activate(place);
    EXPECT_FALSE(test.controller.isPopoverShown()) << "one click on the item only closes";
    test.item.activate(place);
    EXPECT_TRUE(test.controller.isPopoverShown());
    test.item.activate(place);
    EXPECT_TRUE(test.controller.isPopoverShown()) << "a double click is one";
    test.pass(500ms);
    test.item.activate(place);
    EXPECT_FALSE(test.controller.isPopoverShown());

    // An icon of which only a point is known.
    test.item.place = QRect(QPoint(420, 12), QSize(0, 0));
    QCursor::setPos(410, 10);
    const auto press = [&test] {
        test.clicks.press(QPoint(410, 10));
        test.runLoop.drain();
    };
    test.item.activate(place);
    press();
    EXPECT_TRUE(test.controller.isPopoverShown()) << "a double click is one";
    test.pass(500ms);
    // The button is held for long.
    press();
    EXPECT_FALSE(test.controller.isPopoverShown());
    test.pass(1500ms);
    test.item.activate(place);
    EXPECT_FALSE(test.controller.isPopoverShown());
    test.item.activate(place);
    EXPECT_TRUE(test.controller.isPopoverShown());

    test.pass(500ms);
    press();
    test.item.wantMenu({410, 10});
    test.item.activate(place);
    EXPECT_TRUE(test.controller.isPopoverShown()) << "the press before was for the menu";
}

TEST(StatusItemController, ClosesOnceTheKeyboardHasLeftForGood)
{
    Item test;
    test.controller.showPopover();
    QWindow *const panel = QGuiApplication::topLevelWindows().first();
    QWindow other;
    other.show();
    const auto turnTo = [&test](QWindow &window, std::chrono::milliseconds span) {
        window.requestActivate();
        QCoreApplication::processEvents();
        test.pass(span);
        return test.controller.isPopoverShown();
    };
    EXPECT_TRUE(turnTo(*panel, 1s));
    EXPECT_TRUE(turnTo(other, 200ms));
    EXPECT_TRUE(turnTo(*panel, 1s));
    EXPECT_FALSE(turnTo(other, 300ms));
}

}
}
