#include "Platform/Posix/UnixLocalConnection.h"

#include <cerrno>
#include <limits>
#include <poll.h>
#include <QtCore/QSocketNotifier>
#include <sys/socket.h>
#include <unistd.h>

namespace tomcatto {

namespace {

/// Whether the other end has closed its socket, not only its sending half.
bool hasHungUp(int descriptor)
{
    pollfd socket{descriptor, 0, 0};
    return ::poll(&socket, 1, 0) > 0 && (socket.revents & (POLLHUP | POLLERR)) != 0;
}

int pollMilliseconds(const QDeadlineTimer &until)
{
    return static_cast<int>(std::min(until.remainingTime(), qint64{std::numeric_limits<int>::max()}));
}

}

UnixLocalConnection::UnixLocalConnection(int descriptor)
    : m_descriptor(descriptor)
{
}

UnixLocalConnection::~UnixLocalConnection()
{
    m_readable.reset();
    m_writable.reset();
    ::close(m_descriptor);
}

LocalInput UnixLocalConnection::read(qsizetype most)
{
    if (m_peer != LocalPeer::open || most <= 0)
        return {{}, m_peer};
    QByteArray bytes(most, Qt::Uninitialized);
    ssize_t size = 0;
    do {
        size = ::recv(m_descriptor, bytes.data(), static_cast<std::size_t>(most), 0);
    } while (size < 0 && errno == EINTR);
    bytes.truncate(std::max(size, ssize_t{0}));
    if (size == 0)
        endInput(hasHungUp(m_descriptor) ? LocalPeer::gone : LocalPeer::silent);
    else if (size < 0 && errno != EAGAIN)
        endInput(LocalPeer::gone);
    bytes.squeeze();
    return {std::move(bytes), m_peer};
}

void UnixLocalConnection::write(const QByteArray &bytes)
{
    if (m_peer == LocalPeer::gone)
        return;
    m_unsent += bytes;
    sendUnsent();
}

void UnixLocalConnection::onChange(std::function<void()> handler)
{
    m_handler = std::move(handler);
    if (m_readable)
        return;
    m_readable = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Write);
    m_readable->setEnabled(m_peer == LocalPeer::open);
    m_writable->setEnabled(!m_unsent.isEmpty());
    connect(m_readable.get(), &QSocketNotifier::activated, this, &UnixLocalConnection::tell);
    connect(m_writable.get(), &QSocketNotifier::activated, this, [this] {
        sendUnsent();
        if (m_unsent.isEmpty() && m_peer != LocalPeer::gone)
            tell();
    });
}

bool UnixLocalConnection::waitForInput(QDeadlineTimer until)
{
    while (m_peer == LocalPeer::open) {
        pollfd socket{m_descriptor, POLLIN, 0};
        if (!m_unsent.isEmpty())
            socket.events |= POLLOUT;
        const int ready = ::poll(&socket, 1, pollMilliseconds(until));
        if (ready == 0 || (ready < 0 && errno != EINTR))
            return false;
        if (ready < 0)
            continue;
        if ((socket.revents & ~POLLOUT) != 0)
            return true;
        sendUnsent();
    }
    return true;
}

void UnixLocalConnection::sendUnsent()
{
    qsizetype sent = 0;
    while (sent < m_unsent.size()) {
        const auto left = static_cast<std::size_t>(m_unsent.size() - sent);
        const auto size = ::send(m_descriptor, m_unsent.constData() + sent, left, MSG_NOSIGNAL);
        if (size >= 0) {
            sent += size;
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            endInput(LocalPeer::gone);
            // A writer is not called back from within.
            QMetaObject::invokeMethod(this, &UnixLocalConnection::tell, Qt::QueuedConnection);
            return;
        }
    }
    m_unsent.remove(0, sent);
    if (m_writable)
        m_writable->setEnabled(!m_unsent.isEmpty());
}

void UnixLocalConnection::endInput(LocalPeer peer)
{
    m_peer = peer;
    // The end of the input would be reported again and again.
    if (m_readable)
        m_readable->setEnabled(false);
    if (peer != LocalPeer::gone)
        return;
    m_unsent.clear();
    if (m_writable)
        m_writable->setEnabled(false);
}

void UnixLocalConnection::tell() const
{
    // The handler may destroy this object, and itself with it.
    if (const auto handler = m_handler)
        handler();
}

}
