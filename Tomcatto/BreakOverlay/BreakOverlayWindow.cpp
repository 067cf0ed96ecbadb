#include "BreakOverlay/BreakOverlayWindow.h"

#include "BreakOverlay/BreakOverlayWindows.h"

#include <QtCore/QEvent>
#include <QtCore/QPropertyAnimation>
#include <QtGui/QWindow>
#include <utility>

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
                                       BreakOverlayWindows &owner, std::function<void()> onClosed)
    : m_contents(std::move(contents))
    , m_screens(screens)
    , m_owner(owner)
    , m_onClosed(std::move(onClosed))
{
    QWindow &window = m_contents.view->window();
    if (m_screens.canFade())
        fadeIn(window);
    m_screens.cover(window, screen.id);
    window.installEventFilter(this);
}

BreakOverlayWindow::~BreakOverlayWindow()
{
    m_contents.view->window().removeEventFilter(this);
    m_owner.retire(std::move(m_contents));
}

void BreakOverlayWindow::makeKey()
{
    QWindow &window = m_contents.view->window();
    window.raise();
    m_screens.makeKey(window);
}

bool BreakOverlayWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close)
        m_onClosed();
    return QObject::eventFilter(watched, event);
}

}
