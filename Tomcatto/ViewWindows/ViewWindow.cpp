#include "ViewWindows/ViewWindow.h"

#include <QtCore/QEvent>
#include <QtGui/QWindow>

namespace tomcatto {

ViewWindow::ViewWindow(Contents contents, MainRunLoop &runLoop, QObject &keeper)
    : m_contents(std::move(contents))
    , m_runLoop(runLoop)
    , m_keeper(keeper)
{
    window().installEventFilter(this);
}

ViewWindow::~ViewWindow()
{
    window().removeEventFilter(this);
    window().hide();
    m_runLoop.async(m_keeper, [leaving = std::make_shared<Contents>(std::move(m_contents))] {});
}

void ViewWindow::present()
{
    QWindow &shown = window();
    if (shown.windowStates().testFlag(Qt::WindowMinimized))
        shown.setWindowStates(shown.windowStates() & ~Qt::WindowMinimized);
    shown.show();
    shown.raise();
    shown.requestActivate();
}

bool ViewWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Hiding alone does not count: a window whose screen goes is hidden for a moment.
    if (event->type() == QEvent::Close) {
        m_runLoop.async(*this, [this] {
            if (!window().isVisible())
                Q_EMIT closed();
        });
    }
    return QObject::eventFilter(watched, event);
}

}
