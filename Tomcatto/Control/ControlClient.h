#pragma once

#include "Control/ControlMessage.h"

#include <functional>

namespace tomcatto {

/// Talks to the running application over its control socket. Blocking; used by commands, which have nothing else to do.
class ControlClient final
{
public:
    explicit ControlClient(QString socketPath);

    /// Sends one request and waits for its answer. Status `notRunning` where nobody answers.
    [[nodiscard]] ControlReply send(const ControlRequest &request) const;
    /// Sends a request that follows and hands over each answer until the application ends or `handler` returns false.
    /// The result is `done` unless the first answer was refused or nobody answers.
    [[nodiscard]] ControlReply follow(const ControlRequest &request,
                                      const std::function<bool(const ControlReply &)> &handler) const;

private:
    QString m_socketPath;
};

}
