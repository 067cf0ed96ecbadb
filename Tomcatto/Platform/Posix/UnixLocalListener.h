#pragma once

#include "Platform/Posix/FileIdentity.h"
#include "Platform/Posix/UnixLocalSockets.h"

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

namespace tomcatto {

/// Takes connections at a listening socket. Main thread only.
class UnixLocalListener final : public QObject
{
    Q_OBJECT

public:
    /// @param descriptor a listening socket that never waits; it is closed with this object.
    /// @param path its file, which is removed with this object unless another one lies there by then.
    UnixLocalListener(int descriptor, QByteArray path, UnixLocalSockets::PeerCheck isPeerTrusted,
                      LocalSockets::ConnectionHandler handler);
    ~UnixLocalListener() override;

private:
    void acceptOne();
    void pause(int reason);

    int m_descriptor;
    QByteArray m_path;
    std::optional<FileStatus> m_file;
    UnixLocalSockets::PeerCheck m_isPeerTrusted;
    LocalSockets::ConnectionHandler m_handler;
    bool m_isShort = false;
    QSocketNotifier m_notifier;
};

}
