#include "BreakOverlay/BreakOverlayWindow.h"

#include "BreakOverlay/BreakOverlayWindows.h"

#include <QtCore/QPropertyAnimation>
#include <QtGui/QWindow>

namespace tomcatto {
namespace {

void fadeIn(QWindow &window)
{
    window.setOpacity(0);
    auto *fade = new QPropertyAnimation(&window, "opacity", &window);
    fade->setDuration(window.property("inTime").toInt());
    fade->setEasingCurve(QEasingCurve::OutQuad);
    fade->setEndValue(1.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

}

BreakOverlayWindow::BreakOverlayWindow(std::unique_ptr<ViewWindow> view, const Screen &screen, Screens &screens,
                                       BreakOverlayWindows &owner)
    : m_view(std::move(view))
    , m_screens(screens)
    , m_owner(owner)
{
    if (m_screens.canFade())
        fadeIn(m_view->window());
    m_screens.cover(m_view->window(), screen.id);
}

BreakOverlayWindow::~BreakOverlayWindow()
{
    m_owner.retire(std::move(m_view));
}

void BreakOverlayWindow::makeKey()
{
    m_view->window().raise();
    m_screens.makeKey(m_view->window());
}

}
