#pragma once

#include "Navigation/MainWindowRouter.h"

#include <functional>

namespace tomcatto {

/// The menu command that opens the main window on the about page.
struct AboutRouteCommand
{
    MainWindowRouter &router;
    /// Key of the text in the menu.
    QString titleKey;
    /// Opens the main window, on whatever page.
    std::function<void()> openWindow;

    void operator()() const
    {
        openWindow();
        router.open(MainWindowPage::about);
    }
};

}
