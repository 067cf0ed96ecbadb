#include "Platform/Qt/CoveringWindows.h"

#include <algorithm>
#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tomcatto {

CoveringWindows::CoveringWindows(MainRunLoop &runLoop, const WindowSystem &windowSystem)
    : m_runLoop(runLoop)
    , m_windowSystem(windowSystem)
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        m_return = isCovering(focused) ? Cancellable() : m_runLoop.after(returnTime, [this] { returnToFront(); });
    });
}

void CoveringWindows::cover(QWindow &window, const QRect &frame)
{
    const auto screens = QGuiApplication::screens();
    const auto screen = std::ranges::find(screens, frame, &QScreen::geometry);
    if (screen == screens.end())
        return;
    window.setScreen(*screen);
    window.setFlags(window.flags() | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window.setGeometry(frame);
    m_windowSystem.setCovering(window);
    window.showFullScreen();
    m_covering.removeAll(nullptr);
    m_covering.append(&window);
}

void CoveringWindows::makeKey(QWindow &window)
{
    m_keyWindow = &window;
    window.installEventFilter(this);
    window.requestActivate();
    if (window.isExposed())
        m_windowSystem.activate(window);
}

void CoveringWindows::uncover(QWindow &window)
{
    m_covering.removeAll(&window);
    if (m_keyWindow == &window)
        m_keyWindow = nullptr;
}

bool CoveringWindows::isCovering(const QWindow *window) const
{
    return window != nullptr && m_covering.contains(window);
}

void CoveringWindows::returnToFront()
{
    for (const QPointer<QWindow> &window : m_covering) {
        if (window && window->isVisible())
            window->raise();
    }
    if (m_keyWindow && m_keyWindow->isExposed())
        m_windowSystem.activate(*m_keyWindow);
}

bool CoveringWindows::eventFilter(QObject *watched, QEvent *event)
{
    if (const auto *shown = qobject_cast<QWindow *>(watched);
        event->type() == QEvent::Expose && shown && shown->isExposed()) {
        watched->removeEventFilter(this);
        // Window managers give the keyboard to each window that they get to know, so it is asked for after every one.
        if (m_keyWindow && m_keyWindow->isExposed())
            m_windowSystem.activate(*m_keyWindow);
    }
    return QObject::eventFilter(watched, event);
}

}
