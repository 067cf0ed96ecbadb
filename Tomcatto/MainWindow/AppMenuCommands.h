#pragma once

#include "MainWindow/AboutRouteCommand.h"

#include <vector>

namespace tomcatto {

/// One command of a menu.
struct MenuCommand
{
    /// Key of its text.
    QString titleKey;
    std::function<void()> action;
};

/// The application's menu commands, for whatever menu the desktop has. Main thread only; lives as long as the router.
class AppMenuCommands final
{
public:
    struct Actions
    {
        std::function<void()> openWindow;
        std::function<void()> closeWindow;
        std::function<void()> quit;
    };

    AppMenuCommands(MainWindowRouter &router, Actions actions);

    [[nodiscard]] const AboutRouteCommand &about() const noexcept { return m_about; }
    /// All commands in the order of a menu: about, settings, close window, quit.
    [[nodiscard]] std::vector<MenuCommand> commands() const;
    /// Carries out the command with that key; other texts do nothing.
    void perform(const QString &titleKey) const;

private:
    MainWindowRouter &m_router;
    Actions m_actions;
    AboutRouteCommand m_about;
};

}
