#pragma once

#include "Foundation/Cancellable.h"

#include <QtCore/QPoint>

namespace tomcatto {

/// Presses of the mouse anywhere, as far as the system shows them: at least those in the application's own windows. It
/// takes nothing away from what was clicked. Main thread only.
class GlobalClickMonitor
{
public:
    virtual ~GlobalClickMonitor() = default;

    /// Calls `handler` with the place of each press, in logical pixels of the screens.
    [[nodiscard]] virtual Cancellable onPressed(std::function<void(QPoint)> handler) = 0;
};

}
