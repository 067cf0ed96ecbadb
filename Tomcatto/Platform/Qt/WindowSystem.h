#pragma once

#include <QtGui/QGuiApplication>

class QWindow;

namespace tomcatto {

/// What a display server does with windows and the toolkit has no words for. By itself it asks for nothing and tells
/// what holds for most. Servers forget wishes about a window when it is hidden: they are given at each showing. Main
/// thread only.
class WindowSystem
{
public:
    virtual ~WindowSystem() = default;

    /// Keeps a window above the others, on every workspace, and out of taskbar and pager.
    virtual void setFloating(QWindow & /*window*/) const {}
    /// Keeps a window below the others and out of taskbar and pager, on every workspace or on its own.
    virtual void setOnDesktop(QWindow & /*window*/, bool /*isEverywhere*/) const {}
    /// Prepares a hidden window, which has a colour as its property of that name, for covering a screen.
    virtual void setCovering(QWindow & /*window*/) const {}
    /// Asks for the keyboard as the user would who chose the window: after what was done elsewhere a plain request
    /// could be refused.
    virtual void activate(QWindow & /*window*/) const {}
    /// Whether translucent parts of windows let through what is behind them. May wait for the server.
    [[nodiscard]] virtual bool isComposited() const { return true; }
    /// Whether whole windows can be seen through. May wait for the server.
    [[nodiscard]] virtual bool canFade() const { return false; }
    /// Whether windows come where the application wants them, and in which layer.
    [[nodiscard]] virtual bool canPlaceWindows() const
    {
        return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    }
};

}
