#pragma once

#include "Platform/Ports/WidgetPlatform.h"
#include "WidgetWindow/WidgetSize.h"

namespace tomcatto {

/// Sees to it that a person has one widget: a second one that is started hands its wish to the first. Main thread only.
class OneWidget final
{
public:
    using Handler = std::function<void(std::optional<WidgetSize> size)>;

    /// @param ports outlive it
    explicit OneWidget(const WidgetPorts &ports);
    ~OneWidget();

    /// Whether another widget is there and has been told. Blocking, for a moment.
    [[nodiscard]] bool handOver(std::optional<WidgetSize> size);
    /// Calls `asked` when another one is started.
    void listen(Handler asked);

private:
    void take(std::unique_ptr<LocalConnection> connection);

    WidgetPorts m_ports;
    Handler m_asked;
    std::unique_ptr<LocalConnection> m_visitor;
    Cancellable m_listening;
};

}
