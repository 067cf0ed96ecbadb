#include "Platform/Qt/ApplicationClickMonitor.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>

namespace tomcatto {

Cancellable ApplicationClickMonitor::onPressed(std::function<void(QPoint)> handler)
{
    if (m_subscribers++ == 0)
        subscribe();
    const QMetaObject::Connection connection =
        connect(this, &ApplicationClickMonitor::pressed, this, std::move(handler));
    return Cancellable([monitor = QPointer(this), connection] {
        disconnect(connection);
        if (monitor && --monitor->m_subscribers == 0)
            monitor->unsubscribe();
    });
}

void ApplicationClickMonitor::subscribe()
{
    qGuiApp->installEventFilter(this);
}

void ApplicationClickMonitor::unsubscribe()
{
    qGuiApp->removeEventFilter(this);
}

bool ApplicationClickMonitor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWindowType())
        Q_EMIT pressed(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
    return QObject::eventFilter(watched, event);
}

}
