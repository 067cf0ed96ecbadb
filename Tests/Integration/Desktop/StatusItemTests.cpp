#include "Fakes/FakeUserDefaults.h"
#include "Integration/Platform/PrivateBus.h"
#include "Platform/Freedesktop/StatusNotifierTray.h"
#include "Platform/Qt/StatusItemSwitch.h"
#include "Platform/X11/X11ClickMonitor.h"
#include "Platform/X11/X11Tray.h"
#include "Platform/X11/X11WindowSystem.h"
#include "TestScreen.h"
#include "WindowTray.h"

#include <gmock/gmock.h>
#include <QtCore/QJsonDocument>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

using namespace tomcatto;

namespace {

TrayMenuEntry entry(TrayMenuAction action, const QString &text, bool isEnabled = true,
                    std::optional<bool> isChecked = {})
{
    return {TrayMenuCommand{action, {}}, text, isEnabled, isChecked};
}

class StatusItemTests : public testing::Test
{
protected:
    StatusItemTests()
    {
        m_item.setMenu(m_menu);
        present(Qt::red, QStringLiteral("Focus"));
    }

    void present(const QColor &colour, const QString &toolTip)
    {
        StatusItemPresentation presentation;
        for (const int edge : m_item.forms().squareSizes) {
            presentation.squareIcons.emplace_back(edge, edge, QImage::Format_ARGB32_Premultiplied);
            presentation.squareIcons.back().fill(colour);
        }
        if (m_item.forms().pillScale) {
            presentation.pill = QImage(80, 24, QImage::Format_ARGB32_Premultiplied);
            presentation.pill.fill(colour);
        }
        presentation.toolTip = toolTip;
        presentation.accessibleText = QStringLiteral("25 minutes left");
        m_item.show(presentation);
    }
    [[nodiscard]] static std::vector<std::unique_ptr<TrayIcon>> trays(const QDBusConnection &bus,
                                                                      const DesktopAppearance &appearance)
    {
        std::vector<std::unique_ptr<TrayIcon>> trays;
        trays.push_back(std::make_unique<StatusNotifierTray>(bus));
        trays.push_back(std::make_unique<X11Tray>(appearance));
        return trays;
    }
    [[nodiscard]] std::unique_ptr<SideProgram> startHost()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
        return std::make_unique<SideProgram>(QStringLiteral("/usr/bin/python3"),
                                             QStringList{QStringLiteral(STATUS_NOTIFIER_HOST)}, environment);
    }
    [[nodiscard]] static FloatingPillWindow *pill()
    {
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (auto *found = qobject_cast<FloatingPillWindow *>(window); found != nullptr && found->isVisible())
                return found;
        }
        return nullptr;
    }
    [[nodiscard]] bool becomes(bool hasTray, bool hasPill) const
    {
        return QTest::qWaitFor(
            [&] {
                return m_item.forms().squareSizes.empty() != hasTray &&
                       m_item.forms().pillScale.has_value() == hasPill && (pill() != nullptr) == hasPill;
            },
            20'000);
    }
    static QRgb pixel(QPoint place)
    {
        return qApp->primaryScreen()->grabWindow(0, place.x(), place.y(), 1, 1).toImage().pixel(0, 0);
    }
    static QByteArray json(const QByteArray &text)
    {
        QByteArray plain = text;
        return plain.replace('\'', '"');
    }

    const TrayMenu m_menu{{entry(TrayMenuAction::openPanel, QStringLiteral("Open_panel")),
                           {},
                           entry(TrayMenuAction::skip, QStringLiteral("Skip"), false),
                           entry(TrayMenuAction::togglePill, QStringLiteral("Pill"), true, true)}};
    PrivateBus m_bus;
    FakeUserDefaults m_defaults;
    DesktopAppearance m_appearance;
    X11WindowSystem m_windowSystem;
    StatusItemSwitch m_item{trays(m_bus.connection(), m_appearance), m_appearance, m_defaults, m_windowSystem};
    std::vector<std::optional<QRect>> m_places;
    std::vector<TrayMenuAction> m_actions;
    std::vector<QPoint> m_menus;
    Cancellable m_forms = m_item.onFormsChanged([this] { present(Qt::red, QStringLiteral("Focus")); });
    Cancellable m_activation = m_item.onActivated([this](const auto &place) { m_places.push_back(place); });
    Cancellable m_menuWish = m_item.onMenuWanted([this](QPoint place) { m_menus.push_back(place); });
    Cancellable m_choice =
        m_item.onMenuCommand([this](const TrayMenuCommand &command) { m_actions.push_back(command.action); });
};

}

TEST_F(StatusItemTests, FollowsTraysOfBothKindsAndFloatsThePillWhereThereIsNone)
{
    EXPECT_TRUE(becomes(false, true));
    auto windowTray = std::make_unique<SideProgram>(QStringLiteral("trayer"), QStringList());
    EXPECT_TRUE(becomes(true, false));
    EXPECT_EQ(m_item.forms().squareSizes.size(), 1U);
    m_item.setPillWanted(true);
    EXPECT_TRUE(becomes(true, true));
    auto busTray = startHost();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_item.forms().squareSizes.size() == 3; }, 20'000));
    m_item.setPillWanted(false);
    windowTray->stop();
    EXPECT_TRUE(becomes(true, false));
    // A watcher that nobody draws for is not a tray.
    EXPECT_EQ(busTray->ask("host no"), "\"done\"");
    EXPECT_TRUE(becomes(false, true));
    EXPECT_EQ(busTray->ask("host yes"), "\"done\"");
    EXPECT_TRUE(becomes(true, false));
    busTray->stop();
    EXPECT_TRUE(becomes(false, true));
    // And it registers with the next one, too.
    busTray = startHost();
    EXPECT_TRUE(becomes(true, false));
    EXPECT_TRUE(busTray->ask("item").contains("studio.quillbay.Tomcatto"));
    m_appearance.setPreferences({.isDark = {}, .reducedMotion = true});
    EXPECT_TRUE(m_item.forms().isStill);
}

TEST_F(StatusItemTests, WaitsForATrayThatIsSlowToAnswer)
{
    auto tray = startHost();
    EXPECT_TRUE(becomes(true, false));
    outputOf(QStringLiteral("kill"), {QStringLiteral("-STOP"), QString::number(tray->id())});
    const StatusNotifierTray late(m_bus.connection());
    EXPECT_TRUE(QTest::qWaitFor([&] { return late.isDecided(); }, 20'000)) << "the pill must not wait as long";
    EXPECT_FALSE(late.isHosted());
    outputOf(QStringLiteral("kill"), {QStringLiteral("-CONT"), QString::number(tray->id())});
    EXPECT_TRUE(QTest::qWaitFor([&] { return late.isHosted(); }, 20'000));
}

TEST_F(StatusItemTests, IsReadAndUsedByATrayOverTheBus)
{
    const auto tray = startHost();
    EXPECT_TRUE(becomes(true, false));
    EXPECT_EQ(tray->ask("item"),
              json("{'id': 'studio.quillbay.Tomcatto', 'status': 'Active', 'menu': '/MenuBar', 'isMenu': false, "
                   "'size': [22, 22, 1936], 'pixel': [255, 255, 0, 0], 'icons': '(iiay)', 'toolTip': 'Focus', "
                   "'toolTipTypes': null}"));
    EXPECT_EQ(
        tray->ask("menu"),
        json("[0, [[1000, {'enabled': true, 'label': 'Open__panel', 'visible': true}], [1, {'type': 'separator'}], "
             "[1001, {'enabled': false, 'label': 'Skip', 'visible': true}], [1002, {'enabled': true, 'label': 'Pill', "
             "'toggle-state': 1, 'toggle-type': 'checkmark', 'visible': true}]]]"));

    EXPECT_EQ(tray->ask("activate 700 5"), "\"done\"");
    EXPECT_EQ(tray->ask("activate 0 0"), "\"done\"");
    EXPECT_THAT(m_places, testing::ElementsAre(QRect(700, 5, 0, 0), std::nullopt));
    EXPECT_EQ(m_item.geometry(), QRect(700, 5, 0, 0)) << "the last place that was told";
    for (const char *click : {"click 1001", "click 1002", "click 1", "click 77"})
        EXPECT_EQ(tray->ask(click), "\"done\"");
    EXPECT_EQ(tray->ask("clicks 1000 77"), "[77]") << "those that do not exist";
    EXPECT_THAT(m_actions, testing::ElementsAre(TrayMenuAction::togglePill, TrayMenuAction::openPanel))
        << "the others are off or no commands";

    // A menu that a tray still shows: its ids mean what they meant, or nothing.
    m_item.setMenu({{m_menu.entries[0], entry(TrayMenuAction::pause, QStringLiteral("Pause"))}});
    m_item.setMenu({{entry(TrayMenuAction::startBreak, QStringLiteral("Start break")), m_menu.entries[3]}});
    EXPECT_EQ(tray->ask("clicks 1000 1002 1003 1004"), "[1000, 1002, 1003]");
    EXPECT_EQ(m_actions.back(), TrayMenuAction::startBreak);
    EXPECT_EQ(m_actions.size(), 3U);

    EXPECT_TRUE(tray->ask("changes").contains("LayoutUpdated"));
    EXPECT_TRUE(tray->ask("item").contains("Focus"));
    for (const char *toolTip : {"24:59", "24:58", "24:57"})
        present(Qt::red, QLatin1String(toolTip));
    EXPECT_TRUE(tray->ask("item").contains("24:57"));
    EXPECT_EQ(tray->ask("changes"), "[]") << "ticks are not announced one by one";
    present(Qt::blue, QStringLiteral("Paused"));
    const QByteArray item = tray->ask("item");
    EXPECT_TRUE(item.contains("Paused") && item.contains("[255, 0, 0, 255]")) << item.toStdString();
    EXPECT_EQ(tray->ask("changes"), json("['NewIcon', 'NewToolTip']"));
}

TEST_F(StatusItemTests, SitsInATrayThatTakesInWindows)
{
    auto tray = std::make_unique<SideProgram>(QStringLiteral("trayer"), QStringList());
    const auto place = [this] { return m_item.geometry().value_or(QRect()); };
    const auto edge = [&] { return std::min(place().width(), place().height()); };
    const auto isSettled = [&] { return place().y() > 0 && m_item.forms().squareSizes == std::vector{edge()}; };
    ASSERT_TRUE(QTest::qWaitFor(isSettled, 20'000)) << edge();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pixel(place().center()) == 0xFFFF0000; }));
    tray->stop();
    EXPECT_TRUE(becomes(false, true));
    tray = std::make_unique<SideProgram>(QStringLiteral("trayer"), QStringList());
    ASSERT_TRUE(QTest::qWaitFor(isSettled, 20'000)) << "back in the next one";

    const QPoint middle = place().center();
    X11ClickMonitor presses;
    std::vector<bool> wereActivated;
    const Cancellable watching = presses.onPressed([&](QPoint) { wereActivated.push_back(!m_places.empty()); });
    usePointer(QStringLiteral("mousemove %1 %2 click --repeat 2 1").arg(middle.x()).arg(middle.y()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_places.empty(); }));
    EXPECT_THAT(wereActivated, testing::Contains(false)) << "told later, the press would close what it opened";
    usePointer(QStringLiteral("mousedown 3"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_menus.empty(); }));
    EXPECT_THAT(m_places, testing::ElementsAre(place())) << "a double click is one";
    EXPECT_THAT(m_menus, testing::ElementsAre(middle));
    // What opens takes the pointer, although the button is still down.
    QWindow menu;
    menu.setFlags(Qt::Popup);
    menu.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
    EXPECT_TRUE(menu.setMouseGrabEnabled(true));
    menu.close();
    usePointer(QStringLiteral("mouseup 3 mousemove 640 400 mousemove %1 %2").arg(middle.x()).arg(middle.y()));
    const auto hasHint = [] {
        return std::ranges::any_of(qApp->topLevelWindows(), [](QWindow *each) { return each->type() == Qt::ToolTip; });
    };
    EXPECT_TRUE(QTest::qWaitFor(hasHint));
    usePointer(QStringLiteral("mousemove 640 400"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !hasHint(); }));
}

TEST_F(StatusItemTests, IsSeenThroughInTraysOfBothLooksAndGoesWhereItIsPutOut)
{
    constexpr QRgb clear = 0xFF000000, halfRed = 0xFF800000, blue = 0xFF0000FF, halfRedOnBlue = 0xFF80007F;
    for (const bool isTranslucent : {true, false}) {
        WindowTray tray(isTranslucent);
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_item.geometry() == WindowTray::icon; }));
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_item.forms().squareSizes == std::vector{41}; }));
        // The next one as well is laid over the tray, not over the one before.
        for (const QColor colour : {QColor(0, 255, 0, 128), QColor(255, 0, 0, 128)})
            present(colour, QStringLiteral("Focus"));
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return pixel(WindowTray::icon.center()) == (isTranslucent ? halfRed : halfRedOnBlue);
        })) << std::hex
            << pixel(WindowTray::icon.center());
        EXPECT_EQ(pixel(WindowTray::icon.topLeft()), isTranslucent ? clear : blue) << "beside the picture";
        tray.putOut();
        EXPECT_TRUE(becomes(false, true));
        tray.announce();
        EXPECT_TRUE(becomes(true, false));
    }
}

TEST_F(StatusItemTests, FloatsAboveEverythingIsDraggedAlongTheEdgeAndComesBackThere)
{
    ASSERT_TRUE(becomes(false, true));
    FloatingPillWindow &window = *pill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isExposed(); }));
    EXPECT_EQ(window.geometry(), QRect(640 - 44, 0, 88, 32));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->text(QAccessible::Name),
              QStringLiteral("25 minutes left"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->rect(), window.geometry());
    const QImage drawn = window.screen()->grabWindow(window.winId()).toImage();
    EXPECT_FALSE(window.mask().isEmpty() || window.mask().contains(QPoint(0, 0))) << "outside the round end";
    EXPECT_EQ(drawn.pixelColor(20, 2), QColor(0xEC, 0xE9, 0xE7));
    EXPECT_EQ(drawn.pixelColor(16, 4), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(71, 27), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(20, 28), QColor(0xEC, 0xE9, 0xE7));
    const QString states = windowStates(window.winId());
    for (const char *state : {"ABOVE", "SKIP_TASKBAR", "SKIP_PAGER", "(CARDINAL) = 4294967295"})
        EXPECT_TRUE(states.contains(QLatin1String(state))) << state << " in " << states.toStdString();
    EXPECT_FALSE(window.isActive()) << "it must not take the keyboard when it appears";

    usePointer(QStringLiteral("mousemove 640 16 click 1"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_places.empty(); }));
    usePointer(QStringLiteral("mousemove 640 16 mousedown 1 mousemove 900 60 mousemove 940 200 mouseup 1"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_defaults.stored.empty(); }));
    EXPECT_EQ(window.geometry(), QRect(940 - 44, 0, 88, 32));
    const auto middle = m_defaults.stored;
    usePointer(QStringLiteral("mousemove 940 16 mousedown 1 mousemove 1270 20 mousemove 1279 20 mouseup 1"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.geometry().right() == 1279; })) << "it stays on the screen";
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_defaults.stored != middle; }));
    EXPECT_THAT(m_places, testing::ElementsAre(QRect(640 - 44, 0, 88, 32))) << "a drag is not a click";

    FloatingPillWindow next(m_defaults, m_windowSystem);
    next.show();
    EXPECT_EQ(next.geometry().center().x(), 1279 - 44) << "narrower, around the same middle";
    StatusItemPresentation text;
    text.title = QStringLiteral("A title that takes the place of a picture");
    next.present(text);
    EXPECT_EQ(next.geometry().right(), 1279);
    EXPECT_GT(next.width(), 200);
}
