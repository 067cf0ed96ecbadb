#include "BreakOverlay/BreakOverlayWindow.h"

#include "BreakOverlay/BreakOverlayWindows.h"

namespace tomcatto {

BreakOverlayWindow::BreakOverlayWindow(std::unique_ptr<ViewWindow> view, const Screen &screen,
                                       BreakOverlayWindows &owner)
    : m_view(std::move(view))
    , m_owner(owner)
{
    m_view->view().cover(screen.frame);
}

BreakOverlayWindow::~BreakOverlayWindow()
{
    m_owner.retire(std::move(m_view));
}

}
