#include "MainWindow/AppMenuCommands.h"

#include <algorithm>

namespace tomcatto {

AppMenuCommands::AppMenuCommands(MainWindowRouter &router, Actions actions)
    : m_router(router)
    , m_actions(std::move(actions))
    , m_about{router, QStringLiteral("menu.about"), m_actions.openWindow}
{
}

std::vector<MenuCommand> AppMenuCommands::commands() const
{
    return {{m_about.titleKey, m_about},
            {QStringLiteral("menu.settings"), [&router = m_router] { router.openSettings(); }},
            {QStringLiteral("menu.close_window"), m_actions.closeWindow},
            {QStringLiteral("menu.quit"), m_actions.quit}};
}

void AppMenuCommands::perform(const QString &titleKey) const
{
    const std::vector<MenuCommand> all = commands();
    const auto found =
        std::ranges::find_if(all, [&titleKey](const MenuCommand &each) { return each.titleKey == titleKey; });
    if (found != all.end())
        found->action();
}

}
