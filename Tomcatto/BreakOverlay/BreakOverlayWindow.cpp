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

BreakOverlayWindow::BreakOverlayWindow(OverlayView contents, const Screen &screen, Screens &screens,
                                       BreakOverlayWindows &owner)
    : m_contents(std::move(contents))
    , m_screens(screens)
    , m_owner(owner)
{
    QWindow &window = m_contents.view->window();
    if (m_screens.canFade())
        fadeIn(window);
    m_screens.cover(window, screen.id);
}

BreakOverlayWindow::~BreakOverlayWindow()
{
    m_owner.retire(std::move(m_contents));
}

void BreakOverlayWindow::makeKey()
{
    QWindow &window = m_contents.view->window();
    window.raise();
    m_screens.makeKey(window);
}

}
