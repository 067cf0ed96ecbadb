#include "Platform/X11/X11TaskbarPresence.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace tomcatto {

X11TaskbarPresence::X11TaskbarPresence()
{
    qGuiApp->installEventFilter(this);
}

void X11TaskbarPresence::setPolicy(ActivationPolicyKind kind)
{
    m_kind = kind;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible())
            apply(*window);
    }
}

bool X11TaskbarPresence::eventFilter(QObject *watched, QEvent *event)
{
    // The event comes when the window exists and is not mapped yet.
    if (event->type() == QEvent::Show && watched->isWindowType()) {
        if (auto *window = static_cast<QWindow *>(watched); window->isTopLevel())
            apply(*window);
    }
    return QObject::eventFilter(watched, event);
}

void X11TaskbarPresence::apply(QWindow &window) const
{
    if (window.type() == Qt::Popup || window.type() == Qt::ToolTip)
        return;
    const bool isOrdinary = (window.type() == Qt::Window || window.type() == Qt::Dialog) &&
                            !window.flags().testFlag(Qt::FramelessWindowHint);
    m_state.setInTaskbar(window, isOrdinary && m_kind == ActivationPolicyKind::regular);
}

}
