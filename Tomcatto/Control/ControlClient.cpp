#include "Control/ControlClient.h"

namespace tomcatto {

namespace {

constexpr std::chrono::seconds connectPatience{1};
constexpr std::chrono::seconds answerPatience{5};

/// Takes the lines of a connection one by one.
class LineReader final
{
public:
    explicit LineReader(LocalConnection &connection)
        : m_connection(connection)
    {
    }

    /// The next line; nothing if it does not come in time or the other end hangs up.
    [[nodiscard]] std::optional<QByteArray> next(QDeadlineTimer until)
    {
        constexpr qsizetype piece = qsizetype{64} * 1024;
        qsizetype end = m_received.indexOf('\n');
        while (end < 0 && m_peer == LocalPeer::open && m_connection.waitForInput(until)) {
            const LocalInput input = m_connection.read(piece);
            m_peer = input.peer;
            m_received += input.bytes;
            end = m_received.indexOf('\n');
        }
        if (end < 0)
            return std::nullopt;
        QByteArray line = m_received.left(end + 1);
        m_received.remove(0, end + 1);
        return line;
    }
    /// Why no line came at all.
    [[nodiscard]] NoAnswer noAnswer() const noexcept
    {
        return m_peer == LocalPeer::open ? NoAnswer::silent : NoAnswer::hungUp;
    }

private:
    LocalConnection &m_connection;
    LocalPeer m_peer = LocalPeer::open;
    QByteArray m_received;
};

ControlReply replyOf(const QByteArray &line)
{
    const auto reply = decodedReply(line);
    return reply ? *reply : controlReply(ExitStatus::failed, reply.error());
}

}

ControlReply controlReply(NoAnswer reason)
{
    switch (reason) {
    case NoAnswer::nobodyListens:
        return controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is not running. Start it with: tomcatto"));
    case NoAnswer::hungUp:
        return controlReply(ExitStatus::failed, QStringLiteral("Tomcatto ended without an answer."));
    case NoAnswer::silent:
        return controlReply(ExitStatus::failed, QStringLiteral("Tomcatto is running but does not answer."));
    }
    return {};
}

ControlClient::ControlClient(LocalSockets &sockets, std::function<QStringList()> socketPaths)
    : m_sockets(sockets)
    , m_socketPaths(std::move(socketPaths))
{
}

std::expected<ControlReply, NoAnswer> ControlClient::ask(const ControlRequest &request, QDeadlineTimer until) const
{
    const auto connection = connectAndSend(request);
    if (!connection)
        return std::unexpected(NoAnswer::nobodyListens);
    LineReader lines(*connection);
    if (const auto line = lines.next(until))
        return replyOf(*line);
    return std::unexpected(lines.noAnswer());
}

ControlReply ControlClient::send(const ControlRequest &request, std::chrono::milliseconds patience) const
{
    const auto reply = ask(request, QDeadlineTimer(patience));
    return reply ? *reply : controlReply(reply.error());
}

ControlReply ControlClient::follow(const ControlRequest &request,
                                   const std::function<bool(const ControlReply &)> &handler) const
{
    const auto connection = connectAndSend(request);
    if (!connection)
        return controlReply(NoAnswer::nobodyListens);
    LineReader lines(*connection);
    auto line = lines.next(QDeadlineTimer(answerPatience));
    if (!line)
        return controlReply(lines.noAnswer());
    for (; line; line = lines.next(QDeadlineTimer::Forever)) {
        ControlReply reply = replyOf(*line);
        // An answer without a result is the last one.
        if (reply.status != ExitStatus::done || reply.result.is_null())
            return reply;
        if (!handler(reply))
            return {};
    }
    return controlReply(ExitStatus::notRunning, QStringLiteral("Tomcatto is gone without having been quit."));
}

std::unique_ptr<LocalConnection> ControlClient::connectAndSend(const ControlRequest &request) const
{
    for (const QString &path : m_socketPaths()) {
        if (auto connection = m_sockets.connect(path, connectPatience)) {
            connection->write(encoded(request));
            return connection;
        }
    }
    return nullptr;
}

}
