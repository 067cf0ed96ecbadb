#pragma once

#include "Platform/Ports/Screens.h"

#include <functional>
#include <memory>

namespace tomcatto {

/// One window of the overlay, shown from its creation on. Destroying it closes it.
class OverlayWindow
{
public:
    virtual ~OverlayWindow() = default;

    /// Gives the window the keyboard, whichever application has it now.
    virtual void makeKey() = 0;
};

/// Makes the overlay's windows. Main thread only.
class OverlayWindows
{
public:
    virtual ~OverlayWindows() = default;

    /// A window over the whole of a screen. Null where there can be none. @param onClosed called in a later turn
    /// when the desktop has closed the window, as its own key for that does
    [[nodiscard]] virtual std::unique_ptr<OverlayWindow> make(const Screen &screen, std::function<void()> onClosed) = 0;
    /// Loads what the next window needs, without asking for a video, and keeps it until the result is destroyed.
    [[nodiscard]] virtual Cancellable warm() = 0;
};

}
