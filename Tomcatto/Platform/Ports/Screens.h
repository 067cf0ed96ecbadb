#pragma once

#include "Foundation/Cancellable.h"

#include <QtCore/QRect>
#include <QtCore/QString>
#include <vector>

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

/// The screens of the desktop. Main thread only.
class Screens
{
public:
    virtual ~Screens() = default;

    /// The live screens in the system's order. Empty while there is none but a stand-in.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
    /// Calls `handler` after screens came, went, or changed size, scale, place or the main one; once for a burst of
    /// changes, and not before there is a live screen again.
    [[nodiscard]] virtual Cancellable onChanged(std::function<void()> handler) = 0;
};

}
