#pragma once

#include "Platform/Ports/WidgetPlatform.h"
#include "Platform/Qt/DesktopAppearance.h"
#include "Platform/Qt/WindowSystem.h"

namespace tomcatto {

/// What the toolkit and a window system say of the desktop to a widget. Main thread only.
class ToolkitWidgetDesktop final : public WidgetDesktop
{
public:
    /// @param windowSystem and appearance outlive this.
    ToolkitWidgetDesktop(const WindowSystem &windowSystem, const DesktopAppearance &appearance);

    void putOnDesktop(QWindow &window, bool isEverywhere) override;
    [[nodiscard]] bool canPlaceWindows() const override { return m_windowSystem.canPlaceWindows(); }
    [[nodiscard]] bool isComposited() const override { return m_windowSystem.isComposited(); }
    [[nodiscard]] bool isDark() const override { return m_appearance.dark(); }
    [[nodiscard]] Cancellable onLookChanged(std::function<void()> changed) override;

private:
    const WindowSystem &m_windowSystem;
    const DesktopAppearance &m_appearance;
};

}
