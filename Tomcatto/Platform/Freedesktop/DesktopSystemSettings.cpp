#include "Platform/Freedesktop/DesktopSystemSettings.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>

namespace tomcatto {

namespace {

/// A settings program: the desktop it belongs to, then the command for each page; empty where it has none.
struct SettingsProgram
{
    const char *desktop;
    const char *loginItems;
    const char *notifications;
};

constexpr SettingsProgram programs[] = {
    {"KDE", "systemsettings kcm_autostart", "systemsettings kcm_notifications"},
    {"KDE", "systemsettings5 kcm_autostart", "systemsettings5 kcm_notifications"},
    {"GNOME", "gnome-tweaks", ""},
    {"GNOME", "gnome-control-center applications", "gnome-control-center notifications"},
    {"XFCE", "xfce4-session-settings", "xfce4-notifyd-config"},
    {"XFCE", "xfce4-settings-manager", "xfce4-settings-manager"},
    {"LXQt", "lxqt-config-session", "lxqt-config-notificationd"},
    {"LXQt", "lxqt-config", "lxqt-config"},
    {"MATE", "mate-session-properties", "mate-notification-properties"},
    {"MATE", "mate-control-center", "mate-control-center"},
    {"X-Cinnamon", "cinnamon-settings startup", "cinnamon-settings notifications"},
};

}

DesktopSystemSettings::DesktopSystemSettings(QStringList desktops, QString autostartFolder, Launcher launcher)
    : m_desktops(std::move(desktops))
    , m_autostartFolder(std::move(autostartFolder))
    , m_launcher(std::move(launcher))
{
}

QStringList DesktopSystemSettings::currentDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
}

DesktopSystemSettings::Launcher DesktopSystemSettings::systemLauncher()
{
    return {
        [](const QString &name) { return QStandardPaths::findExecutable(name); },
        [](const QString &program, const QStringList &arguments) {
            return QProcess::startDetached(program, arguments);
        },
        [](const QString &folder) { return QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); },
    };
}

bool DesktopSystemSettings::openLoginItems()
{
    return open(Page::loginItems) || (QDir().mkpath(m_autostartFolder) && m_launcher.openFolder(m_autostartFolder));
}

bool DesktopSystemSettings::openNotifications()
{
    return open(Page::notifications);
}

bool DesktopSystemSettings::open(Page page) const
{
    for (const QString &desktop : m_desktops) {
        for (const SettingsProgram &candidate : programs) {
            if (desktop.compare(QLatin1String(candidate.desktop), Qt::CaseInsensitive) != 0)
                continue;
            const char *command = page == Page::loginItems ? candidate.loginItems : candidate.notifications;
            const QStringList words = QString::fromLatin1(command).split(u' ', Qt::SkipEmptyParts);
            const QString program = words.isEmpty() ? QString() : m_launcher.find(words.constFirst());
            if (!program.isEmpty() && m_launcher.start(program, words.mid(1)))
                return true;
        }
    }
    return false;
}

}
