#include "WidgetWindow/OneWidget.h"

namespace tomcatto {

namespace {

constexpr std::chrono::milliseconds patience{1'000};
constexpr qsizetype longestWish = 16;
const QByteArray anySize = QByteArrayLiteral("any");

}

OneWidget::OneWidget(const WidgetPorts &ports)
    : m_ports(ports)
{
}

OneWidget::~OneWidget()
{
    m_listening.cancel();
    m_ports.lock.release();
}

bool OneWidget::handOver(std::optional<WidgetSize> size)
{
    if (m_ports.lock.tryTake() != InstanceLockResult::held)
        return false;
    const auto connection = m_ports.sockets.connect(m_ports.socket, patience);
    if (!connection)
        return true;
    connection->write(size ? rawValue(*size).toLatin1() : anySize);
    // The first one hangs up when it has read the wish.
    (void)connection->waitForInput(QDeadlineTimer(patience));
    return true;
}

void OneWidget::listen(Handler asked)
{
    m_asked = std::move(asked);
    auto listening = m_ports.sockets.listen(
        m_ports.socket, [this](std::unique_ptr<LocalConnection> visitor) { take(std::move(visitor)); });
    if (listening)
        m_listening = std::move(*listening);
}

void OneWidget::take(std::unique_ptr<LocalConnection> connection)
{
    m_visitor = std::move(connection);
    m_visitor->onChange([this] {
        const QByteArray wish = m_visitor->read(longestWish).bytes;
        m_visitor.reset();
        if (!wish.isEmpty())
            m_asked(fromRawValue<WidgetSize>(QString::fromLatin1(wish)));
    });
}

}
