#include "QuillbayKit/PopoverFocusDismissal.h"

namespace quillbay {

PopoverFocusDismissal::PopoverFocusDismissal(tomcatto::HostedView &popover, tomcatto::GlobalClickMonitor &clickMonitor,
                                             tomcatto::MainRunLoop &runLoop, std::function<void()> dismiss)
    : m_popover(popover)
    , m_runLoop(runLoop)
    , m_dismiss(std::move(dismiss))
    , m_clicks(clickMonitor.onPressed([this](QPoint place) { pressed(place); }))
    , m_wasActive(popover.isActive())
{
}

void PopoverFocusDismissal::activeChanged()
{
    m_lost.cancel();
    if (m_popover.isActive())
        m_wasActive = true;
    else if (m_wasActive)
        m_lost = m_runLoop.after(patience, [this] { ask(); });
}

void PopoverFocusDismissal::pressed(QPoint place)
{
    if (!m_popover.frame().contains(place))
        ask();
}

void PopoverFocusDismissal::ask()
{
    if (m_hasAsked)
        return;
    m_hasAsked = true;
    m_runLoop.async(*this, [dismiss = m_dismiss] { dismiss(); });
}

}
