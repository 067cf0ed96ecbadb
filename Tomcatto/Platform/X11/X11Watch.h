#pragma once

#include "Platform/X11/X11Access.h"
#include "Platform/X11/X11Display.h"

#include <functional>
#include <QtCore/QSocketNotifier>

namespace tomcatto {

/// The events of an X server over a connection of its own, so that what is asked for here takes nothing from what the
/// toolkit asks for on the same windows. Main thread only; it waits for the server where `X11Display` does.
class X11Watch final
{
public:
    using Handler = std::function<void(const xcb_generic_event_t &event)>;

    /// @param onEvent is given each event, and may ask the server
    /// @param onLost is called once the server is gone, not from within this
    X11Watch(Handler onEvent, std::function<void()> onLost);

    /// Whether the server let the connection in.
    [[nodiscard]] bool isOpen() const { return m_access.isGranted(); }
    /// Of use where it is open.
    [[nodiscard]] X11Display display() const { return X11Display(m_access.connection()); }
    /// Hands on what has come. To be called after the server was asked outside of an event: the answers bring along
    /// events that nothing else notices.
    void read();

private:
    X11Access m_access;
    Handler m_onEvent;
    std::function<void()> m_onLost;
    std::optional<QSocketNotifier> m_notifier;
};

}
