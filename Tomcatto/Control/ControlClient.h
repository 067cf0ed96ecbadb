#pragma once

#include "Control/ControlMessage.h"
#include "Platform/Ports/LocalSockets.h"

#include <chrono>
#include <functional>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QStringList>

namespace tomcatto {

/// Why a request has no answer.
enum class NoAnswer {
    nobodyListens,
    /// The listener hung up: it is ending.
    hungUp,
    /// It did not come in time.
    silent,
};

/// What to tell people then: `notRunning`, or else `failed`.
[[nodiscard]] ControlReply controlReply(NoAnswer reason);

/// Talks to the running application over its control socket. Blocking; used by commands, which have nothing else to do.
class ControlClient final
{
public:
    /// @param socketPaths where the application may listen, asked anew for each request; the first that answers is
    /// taken
    ControlClient(LocalSockets &sockets, std::function<QStringList()> socketPaths);

    /// Sends one request and waits for its answer, which has status `failed` where it cannot be read.
    [[nodiscard]] std::expected<ControlReply, NoAnswer> ask(const ControlRequest &request, QDeadlineTimer until) const;
    /// Sends one request and waits for its answer. Status `notRunning` where nobody listens, `failed` where
    /// nobody answers in time. @param patience how long to wait for the answer
    [[nodiscard]] ControlReply send(const ControlRequest &request,
                                    std::chrono::milliseconds patience = std::chrono::seconds{5}) const;
    /// Sends a request that follows and hands over each answer until the application ends or `handler` returns false.
    /// The result is `done` unless the first answer was refused, nobody answers, or the application is gone without a
    /// word, which is `notRunning`.
    [[nodiscard]] ControlReply follow(const ControlRequest &request,
                                      const std::function<bool(const ControlReply &)> &handler) const;

private:
    [[nodiscard]] std::unique_ptr<LocalConnection> connectAndSend(const ControlRequest &request) const;

    LocalSockets &m_sockets;
    std::function<QStringList()> m_socketPaths;
};

}
