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
    rest();
}

void ApplicationKeyMonitor::rest()
{
    if (m_handlers->empty() && !m_taken)
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
    // Handlers may cancel themselves and each other.
    const auto handlers = m_handlers;
    return std::ranges::any_of(Handlers(*handlers), [&](const auto &entry) {
        return handlers->contains(entry.first) && (*entry.second)(press);
    });
}

}
