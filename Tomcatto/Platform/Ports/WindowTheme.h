#pragma once

#include <optional>

namespace tomcatto {

/// The look of the application's windows. Main thread only.
class WindowTheme
{
public:
    virtual ~WindowTheme() = default;

    /// Makes the windows dark or light; nothing lets them follow the desktop.
    virtual void setDarkOverride(std::optional<bool> dark) = 0;
};

}
