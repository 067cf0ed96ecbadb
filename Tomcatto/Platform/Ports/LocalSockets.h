#pragma once

#include "Foundation/Cancellable.h"
#include "Platform/Ports/LocalConnection.h"

#include <chrono>
#include <expected>
#include <memory>
#include <QtCore/QString>

namespace tomcatto {

/// Why an address cannot be listened at.
enum class ListenError {
    /// A living process listens there.
    taken,
    /// The place cannot be written; the log says why.
    failed,
};

/// Connections between processes of one user on one machine. An address is a path below a folder that exists. Main
/// thread only.
class LocalSockets
{
public:
    using ConnectionHandler = std::function<void(std::unique_ptr<LocalConnection> connection)>;

    virtual ~LocalSockets() = default;

    /// Hands each connection that comes in to `handler`, on the main loop, until the result is cancelled, which takes
    /// the address away again. Only this user and the administrator get in. What a process that crashed left at the
    /// address is taken over. Connections wait where the process has no means for more at the time.
    [[nodiscard]] virtual std::expected<Cancellable, ListenError> listen(const QString &address,
                                                                         ConnectionHandler handler) = 0;
    /// Connects to this user's process that listens at the address; null if none does, or does not take the connection
    /// in time. Blocking.
    [[nodiscard]] virtual std::unique_ptr<LocalConnection> connect(const QString &address,
                                                                   std::chrono::milliseconds patience) = 0;
};

}
