#pragma once

#include "Platform/Qt/WindowSystem.h"

#include <QtGui/QWindow>

namespace tomcatto {

/// What the toolkit alone can do about windows. Main thread only.
class ToolkitWindowSystem final : public WindowSystem
{
public:
    void activate(QWindow &window) const override { window.requestActivate(); }
    /// Where only the display server could tell, corners that are cut off are right and black ones are not.
    [[nodiscard]] bool isComposited() const override { return QGuiApplication::platformName() != QLatin1String("xcb"); }
};

}
