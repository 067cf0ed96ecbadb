#include "Platform/Views/RemoteView.h"

#include "Platform/Posix/CompanionProgram.h"

namespace tomcatto {

RemoteView::~RemoteView()
{
    if (m_host.m_windowBehind == m_window)
        m_host.m_windowBehind = 0;
    if (!m_isLost)
        m_host.forget(m_number);
}

void RemoteView::present()
{
    // What a desktop gave this process for its next window is the window's.
    const QByteArray token = qgetenv(activationTokenVariable);
    qunsetenv(activationTokenVariable);
    send(ViewMessageKind::present, token);
}

void RemoteView::place(const QRect &rectangle)
{
    // Until the process tells how it came out.
    m_frame = rectangle;
    send(ViewMessageKind::place, rectangle);
}

void RemoteView::leave()
{
    m_isLeaving = true;
    if (m_isLost)
        return tellLater(ViewEvent::left);
    send(ViewMessageKind::leave);
    m_host.awaitEnd(m_number);
}

void RemoteView::tellLater(ViewEvent event)
{
    m_host.m_runLoop.async(*this, [this, event] { tell(event); });
}

void RemoteView::send(ViewMessageKind kind, const QVariant &value) const
{
    if (!m_isLost)
        m_host.m_process.send(kind, {m_number, value});
}

void RemoteView::take(const QVariantList &told)
{
    m_isActive = told.value(2).toBool();
    m_frame = told.value(3).toRect();
    m_window = told.value(4).toULongLong();
    if (m_isActive && m_kind == ViewDescription::Kind::window)
        m_host.m_windowBehind = m_window;
    tell(static_cast<ViewEvent>(told.value(1).toInt()));
}

void RemoteView::lose()
{
    m_isLost = true;
    m_isActive = false;
    tellLater(m_isLeaving ? ViewEvent::left : ViewEvent::closed);
}

}
