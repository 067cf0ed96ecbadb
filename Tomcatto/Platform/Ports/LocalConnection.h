#pragma once

#include <functional>
#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>

namespace tomcatto {

/// What the other end of a connection still does.
enum class LocalPeer {
    /// It may send more.
    open,
    /// It sends nothing more and may still read.
    silent,
    gone,
};

/// What a look at a connection found.
struct LocalInput
{
    QByteArray bytes;
    /// As long as bytes come this may lag behind.
    LocalPeer peer = LocalPeer::open;
};

/// One end of a stream of bytes to another process of this user. Destroying it hangs up at once and gives up what was
/// not sent. Main thread only.
class LocalConnection
{
public:
    virtual ~LocalConnection() = default;

    /// Takes what has come, without waiting. @param most the largest number of bytes to take
    [[nodiscard]] virtual LocalInput read(qsizetype most) = 0;
    /// Sends without waiting; what the other end does not take yet is kept and sent later. Where the other end is gone
    /// the bytes are dropped, which a later `read` tells.
    virtual void write(const QByteArray &bytes) = 0;
    /// How many bytes are kept to be sent.
    [[nodiscard]] virtual qsizetype unsentBytes() const = 0;
    /// Calls `handler` on the main loop while there is something to read, when the other end falls silent or goes, and
    /// when everything kept has been sent. The handler reads; it may destroy the connection. A second handler takes the
    /// first one's place.
    virtual void onChange(std::function<void()> handler) = 0;
    /// Blocks until there is something to read or the other end has no more to send, and sends meanwhile what is kept;
    /// false where the time is up before. For callers without a running main loop.
    [[nodiscard]] virtual bool waitForInput(QDeadlineTimer until) = 0;
};

}
