#include "MockedBus.h"
#include "Platform/Freedesktop/AppearancePortal.h"
#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Freedesktop/DesktopSystemSettings.h"
#include "Platform/Freedesktop/FreedesktopNotificationProbe.h"
#include "Platform/Posix/DisplayProbe.h"
#include "Platform/Posix/ProcessReplacement.h"
#include "Platform/Qt/ToolkitTheme.h"

#include <gmock/gmock.h>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>

using namespace tomcatto;

namespace {

class DesktopBusTests : public MockedBus
{
protected:
    [[nodiscard]] std::unique_ptr<SideProgram> startPortal(const QString &settings)
    {
        auto portal = startMock(QStringLiteral("%1 %2 %3").arg(m_portal, m_portalPath, m_portalSettings), m_portal);
        call(m_portal, m_portalPath, QStringLiteral("AddMethod"),
             {m_portalSettings, QStringLiteral("ReadAll"), QStringLiteral("as"), QStringLiteral("a{sa{sv}}"),
              QStringLiteral("ret = ") + settings});
        return portal;
    }

    const QString m_portal = QStringLiteral("org.freedesktop.portal.Desktop");
    const QString m_portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
    const QString m_portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
};

}

TEST_F(DesktopBusTests, AppearanceFollowsThePortalUnderWhatTheUserSet)
{
    const auto portal = startPortal(
        QStringLiteral("{'org.freedesktop.appearance': {'color-scheme': dbus.UInt32(1), 'contrast': dbus.UInt32(1)},"
                       " 'org.gnome.desktop.interface': {'enable-animations': False, 'text-scaling-factor': 1.5}}"));
    DesktopAppearance appearance;
    const AppearancePortal asked(m_bus.connection(), appearance);
    EXPECT_FALSE(appearance.dark()) << "the palette's, before the portal answers";
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark(); }));
    EXPECT_TRUE(appearance.highContrast());
    EXPECT_TRUE(appearance.reducedMotion());
    EXPECT_EQ(appearance.textScale(), 1) << "on this platform the resolution scales texts";

    appearance.setDarkOverride(false);
    EXPECT_FALSE(appearance.dark());
    EXPECT_TRUE(appearance.isDesktopDark());
    appearance.setDarkOverride(std::nullopt);
    EXPECT_TRUE(appearance.dark());
    for (const uint scheme : {2U, 1U, 0U}) {
        call(m_portal, m_portalPath, QStringLiteral("EmitSignal"),
             {m_portalSettings, QStringLiteral("SettingChanged"), QStringLiteral("ssv"),
              QVariantList{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"), scheme}});
        EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark() == (scheme == 1); })) << scheme;
    }
}

TEST_F(DesktopBusTests, AppearanceAsksAPortalThatComesLater)
{
    DesktopAppearance appearance;
    const AppearancePortal asked(m_bus.connection(), appearance);
    QPalette night;
    night.setColor(QPalette::Window, Qt::black);
    night.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(night);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.dark(); })) << "the palette decides without a portal";
    QGuiApplication::setPalette(QPalette());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !appearance.dark(); }));
    auto portal = startPortal(QStringLiteral("{'org.freedesktop.appearance': {'reduced-motion': dbus.UInt32(1)}}"));
    // The mock has its method only after it has its name: what it said first was nothing.
    call(m_portal, m_portalPath, QStringLiteral("EmitSignal"),
         {m_portalSettings, QStringLiteral("SettingChanged"), QStringLiteral("ssv"),
          QVariantList{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("reduced-motion"), 1U}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.reducedMotion(); }));
}

TEST(ToolkitThemeTests, MenusAndWarningsFollowTheThemeWhateverTheDesktopHas)
{
    DesktopAppearance appearance;
    const ToolkitTheme theme(appearance);
    const auto isDark = [](const QWidget &widget) {
        widget.ensurePolished();
        return widget.palette().color(QPalette::Window).lightness() <
               widget.palette().color(QPalette::WindowText).lightness();
    };
    QPalette night;
    night.setColor(QPalette::Window, Qt::black);
    night.setColor(QPalette::WindowText, Qt::white);
    for (const bool isDesktopDark : {false, true, false}) {
        QGuiApplication::setPalette(isDesktopDark ? night : QPalette());
        for (const auto override : {std::optional(true), std::optional(false), std::optional<bool>()}) {
            appearance.setDarkOverride(override);
            const QMenu menu;
            const QMessageBox warning;
            EXPECT_EQ(isDark(menu), override.value_or(isDesktopDark)) << isDesktopDark;
            EXPECT_EQ(isDark(warning), override.value_or(isDesktopDark)) << isDesktopDark;
            EXPECT_EQ(appearance.isDesktopDark(), isDesktopDark) << "what it tells is not what was set";
        }
    }
}

TEST_F(DesktopBusTests, NotificationsAreWhatTheServerSays)
{
    FreedesktopNotificationProbe probe(m_bus.connection());
    std::vector<NotificationProbeResult> results;
    const auto take = [&](const NotificationProbeResult &result) { results.push_back(result); };
    const auto asked = [&](std::size_t count) {
        return QTest::qWaitFor([&] { return results.size() == count; }, 10'000);
    };
    probe.query(take);
    EXPECT_TRUE(results.empty()) << "the answer comes later";
    EXPECT_TRUE(asked(1));
    probe.request(take);
    EXPECT_TRUE(asked(2));
    const auto server =
        startMock(QStringLiteral("--template notification_daemon --parameters {\"capabilities\":\"actions\"}"),
                  QStringLiteral("org.freedesktop.Notifications"));
    probe.query(take);
    EXPECT_TRUE(asked(3));
    FreedesktopNotificationProbe withoutBus(QDBusConnection(QStringLiteral("none")));
    withoutBus.query(take);
    EXPECT_TRUE(asked(4)) << "no bus is an answer too";
    const NotificationProbeResult none{NotificationPermission::unavailable, false};
    EXPECT_THAT(results, testing::ElementsAre(none, none,
                                              (NotificationProbeResult{NotificationPermission::authorised, true,
                                                                       QStringLiteral("mock-notify")}),
                                              none));
}

TEST(AutostartLoginItemTests, WritesAnEntryThatDesktopsStartAndReadsWhatTheySwitched)
{
    const QTemporaryDir folder;
    // Everything that means something in such a line.
    const QString program = folder.filePath(QStringLiteral("a \"b\" $HOME `c` \\d é;&"));
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"started $*\"\n");
    script.close();
    ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
    const QString autostart = folder.filePath(QStringLiteral("config/autostart"));
    AutostartLoginItem item(program, autostart);
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_TRUE(item.unregisterItem());
    ASSERT_TRUE(item.registerItem());
    EXPECT_EQ(item.status(), LoginItemStatus::enabled);

    const QString file = autostart + QStringLiteral("/studio.quillbay.Tomcatto.desktop");
    const QString starter =
        QStringLiteral("import gi, sys, time; from gi.repository import Gio; "
                       "Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch(); time.sleep(0.5)");
    EXPECT_EQ(outputOf(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), starter, file}),
              QStringLiteral("started --background\n"));

    QFile entry(file);
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    const QByteArray text = entry.readAll();
    entry.close();
    for (const auto &[from, to, status] :
         {std::tuple("enabled=true", "enabled=false", LoginItemStatus::requiresApproval),
          std::tuple("Terminal=false", "Hidden = true", LoginItemStatus::requiresApproval),
          std::tuple("Terminal=false", "[Other]\nHidden=true", LoginItemStatus::enabled),
          std::tuple("Type=Application", "Type=Link", LoginItemStatus::notRegistered),
          std::tuple("Exec=", "Exec=\n#", LoginItemStatus::notRegistered),
          std::tuple("Exec=", "Exec=env LANG=C ", LoginItemStatus::enabled),
          std::tuple("Exec=", "Exec=env LANG=C\n#", LoginItemStatus::otherProgram),
          std::tuple("Exec=\"", "Exec=\"/gone", LoginItemStatus::outdated),
          std::tuple("Terminal=false", "TryExec=/gone", LoginItemStatus::outdated),
          std::tuple("[Desktop Entry]", "", LoginItemStatus::notRegistered)}) {
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        entry.write(QByteArray(text).replace(from, to));
        entry.close();
        EXPECT_EQ(item.status(), status) << to;
    }
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_FALSE(AutostartLoginItem(program, program).registerItem()) << "a file is where the folder should be";
}

TEST(DesktopSystemSettingsTests, StartsTheProgramOfTheDesktopElseOpensTheFolder)
{
    const QTemporaryDir folder;
    QStringList installed, opened;
    const DesktopSystemSettings::Launcher launcher{
        [&](const QString &name) { return installed.contains(name) ? u'/' + name : QString(); },
        [&](const QString &program, const QStringList &arguments) {
            opened << program + u' ' + arguments.join(u' ');
            return true;
        },
        [&](const QString &place) {
            opened << place;
            return QFile::exists(place);
        }};
    const QString place = folder.filePath(QStringLiteral("autostart"));
    DesktopSystemSettings settings({QStringLiteral("ubuntu"), QStringLiteral("GNOME")}, place, launcher);
    installed = {QStringLiteral("xfce4-session-settings")};
    EXPECT_TRUE(settings.openLoginItems()) << "another desktop's program does not know this one's";
    EXPECT_FALSE(settings.openNotifications());
    installed << QStringLiteral("gnome-control-center");
    EXPECT_TRUE(settings.openLoginItems());
    EXPECT_TRUE(settings.openNotifications());
    EXPECT_EQ(opened, QStringList({place, QStringLiteral("/gnome-control-center applications"),
                                   QStringLiteral("/gnome-control-center notifications")}));
}

TEST(DisplayProbeTests, FindsADisplayThatAnswers)
{
    const QTemporaryDir folder;
    QProcessEnvironment environment;
    const auto isReachable = [&] {
        return DisplayProbe(
                   [&](const char *name) { return environment.value(QString::fromLatin1(name)).toLocal8Bit(); })
            .isReachable();
    };
    EXPECT_FALSE(isReachable());
    for (const auto &[display, expected] :
         {std::pair(qEnvironmentVariable("DISPLAY"), true),
          std::pair(qEnvironmentVariable("DISPLAY") + QStringLiteral(".0"), true),
          std::pair(QStringLiteral(":99999"), false), std::pair(QStringLiteral("nonsense"), false),
          std::pair(QStringLiteral("127.0.0.1:9"), false)}) {
        environment.insert(QStringLiteral("DISPLAY"), display);
        EXPECT_EQ(isReachable(), expected) << display.toStdString();
    }
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-7"));
    EXPECT_FALSE(isReachable());
    const SideProgram compositor(QStringLiteral("weston"),
                                 {QStringLiteral("--backend=headless-backend.so"), QStringLiteral("--socket=wayland-7"),
                                  QStringLiteral("--log=/dev/null")},
                                 environment);
    EXPECT_TRUE(QTest::qWaitFor(isReachable, 20'000));
}

TEST(ProcessReplacementTests, GoesOnAsTheOtherProgramOrSaysWhyNot)
{
    const ProcessReplacement shell(QStringLiteral("/bin/sh"));
    EXPECT_TRUE(shell.isPossible());
    EXPECT_EXIT((void)shell.run({QStringLiteral("-c"), QStringLiteral("exit $#"), QStringLiteral("sh"),
                                 QStringLiteral("a b"), QString(), QStringLiteral("*")}),
                testing::ExitedWithCode(3), "");
    const ProcessReplacement missing = ProcessReplacement::beside(QStringLiteral("no-such-program"));
    EXPECT_FALSE(missing.isPossible());
    EXPECT_FALSE(missing.run({}).isEmpty());
    EXPECT_FALSE(ProcessReplacement(QStringLiteral("/etc/passwd")).isPossible());
}
