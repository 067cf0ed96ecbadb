#pragma once

#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/ViewHost.h"

#include <QtCore/QObject>

namespace quillbay {

/// Asks for a popover to be closed when the user turns elsewhere: the popover, once it had the keyboard, loses it for
/// good, or the mouse is pressed outside of it. Asks once, in a later turn of the main loop, so that the one who is
/// asked may destroy the popover and this object. Main thread only.
class PopoverFocusDismissal final : public QObject
{
    Q_OBJECT

public:
    /// How long the keyboard may be elsewhere: a window manager whose former window has just gone, as that of a break,
    /// first gives it to nobody.
    static constexpr std::chrono::milliseconds patience{250};

    /// @param popover outlives this object. @param dismiss closes it.
    PopoverFocusDismissal(tomcatto::HostedView &popover, tomcatto::GlobalClickMonitor &clickMonitor,
                          tomcatto::MainRunLoop &runLoop, std::function<void()> dismiss);

    /// To be called when the popover got or lost the keyboard.
    void activeChanged();

private:
    void pressed(QPoint place);
    void ask();

    tomcatto::HostedView &m_popover;
    tomcatto::MainRunLoop &m_runLoop;
    std::function<void()> m_dismiss;
    tomcatto::Cancellable m_clicks;
    tomcatto::Cancellable m_lost;
    bool m_wasActive = false;
    bool m_hasAsked = false;
};

}
