#include "Platform/Qt/ApplicationKeyMonitor.h"

#include "Platform/Qt/KeyPositions.h"

#include <algorithm>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <utility>

namespace tomcatto {

namespace {

KeyPress keyPress(const QKeyEvent &event)
{
    KeyPress press{static_cast<Qt::Key>(event.key()), event.modifiers()};
    press.keyCode = keyPositions::virtualKey(event.nativeScanCode());
    press.isRepeat = event.isAutoRepeat();
    for (const auto &[held, modifier] :
         {std::pair(Qt::ShiftModifier, KeyModifier::shift), std::pair(Qt::ControlModifier, KeyModifier::control),
          std::pair(Qt::AltModifier, KeyModifier::option), std::pair(Qt::MetaModifier, KeyModifier::command)})
        press.heldModifiers.setFlag(modifier, event.modifiers().testFlag(held));
    return press;
}

}

Cancellable ApplicationKeyMonitor::onKeyDown(std::optional<Qt::Key> key, std::function<void(const KeyPress &)> handler)
{
    const int number = ++m_lastNumber;
    m_handlers.emplace(number, std::make_shared<const Handler>(key, std::move(handler)));
    QCoreApplication::instance()->installEventFilter(this);
    return Cancellable([self = QPointer(this), number] {
        if (self)
            self->remove(number);
    });
}

void ApplicationKeyMonitor::remove(int number)
{
    m_handlers.erase(number);
    rest();
}

void ApplicationKeyMonitor::rest()
{
    if (m_handlers.empty() && !m_taken)
        QCoreApplication::instance()->removeEventFilter(this);
}

bool ApplicationKeyMonitor::eventFilter(QObject *watched, QEvent *event)
{
    const bool isAnnounced = event->type() == QEvent::ShortcutOverride;
    if ((!isAnnounced && event->type() != QEvent::KeyPress) || !watched->isWindowType())
        return QObject::eventFilter(watched, event);
    const auto *keyEvent = static_cast<QKeyEvent *>(event);
    const KeyPress press = keyPress(*keyEvent);
    const auto taken = std::exchange(m_taken, std::nullopt);
    if (!isAnnounced && taken) {
        rest();
        return taken == press.key || isTaken(press);
    }
    const QPointer self(this);
    if (!isTaken(press))
        return false;
    // A window's shortcut for it would come first, and no press would follow. Accepted, the key is nobody's shortcut.
    if (isAnnounced && self) {
        m_taken = press.key;
        event->accept();
        QCoreApplication::instance()->installEventFilter(this);
    }
    return true;
}

bool ApplicationKeyMonitor::isTaken(const KeyPress &press) const
{
    for (const auto &[number, handler] : m_handlers) {
        if (handler->key && handler->key != press.key)
            continue;
        const auto told = handler;
        told->tell(press);
        return true;
    }
    return false;
}

}
