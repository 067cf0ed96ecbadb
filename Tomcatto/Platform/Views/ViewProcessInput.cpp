#include "Platform/Views/ViewProcessInput.h"

#include <QtCore/QPointer>

namespace tomcatto {

ViewProcessKeys::ViewProcessKeys(ViewProcess &process)
    : m_process(process)
{
    connect(&process, &ViewProcess::began, this, [this] {
        for (const auto &[number, handler] : m_handlers)
            watch(number, handler);
    });
    connect(&process, &ViewProcess::received, this, &ViewProcessKeys::take);
}

Cancellable ViewProcessKeys::onKeyDown(std::optional<Qt::Key> key, std::function<void(const KeyPress &)> handler)
{
    const int number = ++m_lastNumber;
    watch(number, m_handlers[number] = {key, std::move(handler)});
    return Cancellable([self = QPointer(this), number] {
        if (!self)
            return;
        self->m_handlers.erase(number);
        self->m_process.send(ViewMessageKind::forgetKeys, {number});
    });
}

void ViewProcessKeys::watch(int number, const Handler &handler)
{
    m_process.send(ViewMessageKind::watchKeys, {number, static_cast<int>(handler.key.value_or(Qt::Key(0)))});
}

void ViewProcessKeys::take(const ViewMessage &message) const
{
    const QVariantList &told = message.arguments;
    const auto handler = m_handlers.find(told.value(0).toInt());
    // A key may have been pressed before the process heard that nobody wants it any more.
    if (message.kind != ViewMessageKind::keyDown || handler == m_handlers.end())
        return;
    KeyPress press{static_cast<Qt::Key>(told.value(1).toInt()), Qt::KeyboardModifiers::fromInt(told.value(2).toInt())};
    if (const int place = told.value(3).toInt(); place >= 0)
        press.keyCode = static_cast<quint16>(place);
    press.heldModifiers = KeyModifiers::fromInt(told.value(4).toUInt());
    press.isRepeat = told.value(5).toBool();
    const auto tell = handler->second.tell;
    tell(press);
}

void followPresses(ViewProcess &process, ApplicationClickMonitor &monitor)
{
    QObject::connect(&process, &ViewProcess::received, &monitor, [&monitor](const ViewMessage &message) {
        if (message.kind == ViewMessageKind::pressed)
            monitor.notice(message.arguments.value(0).toPoint());
    });
}

ViewProcessTaskbar::ViewProcessTaskbar(ViewProcess &process, ActivationPolicyPort &own)
    : m_process(process)
    , m_own(own)
{
    connect(&process, &ViewProcess::began, this, [this] { m_process.send(ViewMessageKind::taskbar, {m_isIn}); });
}

void ViewProcessTaskbar::setPolicy(ActivationPolicyKind kind)
{
    m_isIn = kind == ActivationPolicyKind::regular;
    m_process.send(ViewMessageKind::taskbar, {m_isIn});
    m_own.setPolicy(kind);
}

}
