#pragma once

#include "Platform/Ports/LocalSockets.h"

namespace tomcatto {

/// Stream sockets whose address is a file. The file is for its owner alone; where the system tells who connects and who
/// listens, that is asked too, since not all systems heed the mode of such a file. Main thread only.
class UnixLocalSockets final : public LocalSockets
{
public:
    /// Whether to speak with the other end of a connected socket.
    using PeerCheck = bool (*)(int descriptor);

    /// @param isPeerTrusted null if the socket file's mode is protection enough.
    explicit UnixLocalSockets(PeerCheck isPeerTrusted = nullptr)
        : m_isPeerTrusted(isPeerTrusted)
    {
    }

    [[nodiscard]] std::expected<Cancellable, ListenError> listen(const QString &address,
                                                                 ConnectionHandler handler) override;
    [[nodiscard]] std::unique_ptr<LocalConnection> connect(const QString &address,
                                                           std::chrono::milliseconds patience) override;

private:
    PeerCheck m_isPeerTrusted;
};

}
