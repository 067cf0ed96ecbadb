#include "Platform/Overlay/ApplicationKeyMonitor.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>

namespace tomcatto {

Cancellable ApplicationKeyMonitor::onKeyDown(std::function<bool(const KeyPress &)> handler)
{
    const int key = ++m_lastKey;
    m_handlers->emplace(key, std::make_shared<std::function<bool(const KeyPress &)>>(std::move(handler)));
    QCoreApplication::instance()->installEventFilter(this);
    return Cancellable([self = QPointer(this), key] {
        if (self)
            self->remove(key);
    });
}

void ApplicationKeyMonitor::remove(int key)
{
    m_handlers->erase(key);
    if (m_handlers->empty())
        QCoreApplication::instance()->removeEventFilter(this);
}

bool ApplicationKeyMonitor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWindowType())
        return QObject::eventFilter(watched, event);
    const auto *keyEvent = static_cast<QKeyEvent *>(event);
    const KeyPress press{static_cast<Qt::Key>(keyEvent->key()), keyEvent->modifiers(), keyEvent->isAutoRepeat()};
    // Handlers may cancel themselves and each other.
    const auto handlers = m_handlers;
    for (const auto &[key, handler] : Handlers(*handlers)) {
        if (handlers->contains(key) && (*handler)(press))
            return true;
    }
    return false;
}

}
