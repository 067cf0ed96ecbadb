#pragma once

#include "Platform/Qt/WindowSystem.h"
#include "Platform/X11/X11Display.h"

#include <QtCore/QList>

namespace tomcatto {

/// The X server and its window manager. Where the application shows on something else, nothing happens. Main thread
/// only.
class X11WindowSystem final : public WindowSystem
{
public:
    /// Keeps a window out of the taskbar and the pager, or shows it there.
    void setInTaskbar(QWindow &window, bool isInTaskbar) const;
    void setFloating(QWindow &window) const override;
    void setOnDesktop(QWindow &window, bool isEverywhere) const override;
    void setCovering(QWindow &window) const override;
    void activate(QWindow &window) const override;
    [[nodiscard]] bool isComposited() const override { return !m_display.isValid() || m_display.isComposited(); }
    [[nodiscard]] bool canFade() const override { return m_display.isValid() && m_display.isComposited(); }

private:
    void setWorkspace(QWindow &window, uint32_t workspace) const;
    void setStates(QWindow &window, const QList<QByteArray> &names, bool isOn) const;

    X11Display m_display;
};

}
