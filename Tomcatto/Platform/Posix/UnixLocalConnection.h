#pragma once

#include "Platform/Ports/LocalConnection.h"

#include <memory>
#include <QtCore/QObject>

class QSocketNotifier;

namespace tomcatto {

/// A connected stream socket. Main thread only.
class UnixLocalConnection final : public QObject, public LocalConnection
{
    Q_OBJECT

public:
    /// @param descriptor a connected socket that never waits; it is closed with this object.
    explicit UnixLocalConnection(int descriptor);
    ~UnixLocalConnection() override;

    [[nodiscard]] LocalInput read(qsizetype most) override;
    void write(const QByteArray &bytes) override;
    [[nodiscard]] qsizetype unsentBytes() const override { return m_unsent.size(); }
    void onChange(std::function<void()> handler) override;
    [[nodiscard]] bool waitForInput(QDeadlineTimer until) override;

private:
    void sendUnsent();
    void endInput(LocalPeer peer);
    void tell() const;

    int m_descriptor;
    LocalPeer m_peer = LocalPeer::open;
    QByteArray m_unsent;
    std::function<void()> m_handler;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
};

}
