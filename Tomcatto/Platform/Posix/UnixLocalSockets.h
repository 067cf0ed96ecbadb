#pragma once

#include "Platform/Ports/LocalSockets.h"

namespace tomcatto {

/// Stream sockets whose address is a file. The file is for its owner alone, and who connects and who listens is asked
/// of the system too, since not all systems heed the mode of such a file. Main thread only.
class UnixLocalSockets final : public LocalSockets
{
public:
    [[nodiscard]] std::expected<Cancellable, ListenError> listen(const QString &address,
                                                                 ConnectionHandler handler) override;
    [[nodiscard]] std::unique_ptr<LocalConnection> connect(const QString &address,
                                                           std::chrono::milliseconds patience) override;

    /// Whether the other end of a connected socket belongs to this user or the administrator.
    [[nodiscard]] static bool isPeerTrusted(int descriptor);
};

}
