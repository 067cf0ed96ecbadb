#pragma once

#include "Platform/Ports/SystemSettings.h"

#include <functional>
#include <QtCore/QStringList>

namespace tomcatto {

/// The settings programs of the desktops that have a page for what is asked, else the folder with the autostart
/// entries.
class DesktopSystemSettings final : public SystemSettings
{
public:
    /// How programs are found and started; replaced where nothing may be started.
    struct Launcher
    {
        /// The program's path; empty where it is not installed.
        std::function<QString(const QString &name)> find;
        std::function<bool(const QString &program, const QStringList &arguments)> start;
        std::function<bool(const QString &folder)> openFolder;
    };

    /// @param desktops names of the running desktop, the most special one first.
    /// @param autostartFolder what is opened where the desktop has no page; it is made when missing.
    DesktopSystemSettings(QStringList desktops, QString autostartFolder, Launcher launcher = systemLauncher());

    /// The names that the session gives the running desktop.
    [[nodiscard]] static QStringList currentDesktops();
    [[nodiscard]] static Launcher systemLauncher();

    bool openLoginItems() override;
    bool openNotifications() override;

private:
    enum class Page { loginItems, notifications };

    [[nodiscard]] bool open(Page page) const;

    QStringList m_desktops;
    QString m_autostartFolder;
    Launcher m_launcher;
};

}
