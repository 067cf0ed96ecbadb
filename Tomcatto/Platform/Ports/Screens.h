#pragma once

#include "Foundation/Cancellable.h"

#include <QtCore/QRect>
#include <QtCore/QString>
#include <vector>

class QWindow;

namespace tomcatto {

/// One screen that shows pictures now.
struct Screen
{
    /// The same for as long as the screen stays plugged in.
    QString id;
    /// The whole of it, panels and docks included, in logical pixels of the desktop.
    QRect frame;
    /// Device pixels to one logical pixel.
    double scale = 1;
    /// The screen with the panels; at most one.
    bool isMain = false;

    bool operator==(const Screen &) const = default;
};

/// The screens of the desktop and windows that cover them. Main thread only.
class Screens
{
public:
    virtual ~Screens() = default;

    /// The live screens in the system's order. Empty while there is none but a stand-in.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
    /// Calls `handler` after screens came, went, or changed size, scale, place or the main one; once for a burst of
    /// changes, and not before there is a live screen again.
    [[nodiscard]] virtual Cancellable onChanged(std::function<void()> handler) = 0;

    /// Shows a hidden window over the whole frame of a screen, in front of panels, docks and full-screen windows and on
    /// every workspace, as far as the desktop lets it, until `uncover`. Does nothing once the screen has gone.
    virtual void cover(QWindow &window, const QString &screenId) = 0;
    /// The window closes: it may stay in sight for a moment, but asks for neither place nor keyboard any more.
    virtual void uncover(QWindow &window) = 0;
    /// Gives a shown window the keyboard, whichever application has it now.
    virtual void makeKey(QWindow &window) = 0;
    /// Whether windows can be seen through, and so fade.
    [[nodiscard]] virtual bool canFade() const = 0;
};

}
