#pragma once

#include "BreakOverlay/OverlayWindows.h"
#include "ViewWindows/ViewWindow.h"

namespace tomcatto {

class BreakOverlayWindows;

/// One window of the break overlay over one screen. Main thread only.
class BreakOverlayWindow final : public OverlayWindow
{
public:
    /// Shows the view over the screen. @param owner takes the view when the window ends
    BreakOverlayWindow(std::unique_ptr<ViewWindow> view, const Screen &screen, BreakOverlayWindows &owner);
    BreakOverlayWindow(const BreakOverlayWindow &) = delete;
    BreakOverlayWindow &operator=(const BreakOverlayWindow &) = delete;
    ~BreakOverlayWindow() override;

    void makeKey() override { m_view->view().makeKey(); }

private:
    std::unique_ptr<ViewWindow> m_view;
    BreakOverlayWindows &m_owner;
};

}
