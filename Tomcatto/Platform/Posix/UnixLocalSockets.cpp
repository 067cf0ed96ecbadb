#include "Platform/Posix/UnixLocalSockets.h"

#include "Foundation/Logger.h"
#include "Platform/Posix/DescriptorFlags.h"
#include "Platform/Posix/UnixLocalConnection.h"
#include "Platform/Posix/UnixLocalListener.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <QtCore/QFile>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace tomcatto {

namespace {

/// A socket that is closed unless it is handed on.
class OwnedSocket final
{
public:
    OwnedSocket()
        : m_descriptor(closedOnReplacement(::socket(AF_UNIX, SOCK_STREAM, 0)))
    {
    }
    OwnedSocket(const OwnedSocket &) = delete;
    OwnedSocket &operator=(const OwnedSocket &) = delete;
    ~OwnedSocket()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }
    [[nodiscard]] int release() noexcept { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
};

/// Calls `act`, which is bind or connect, with the path as address. False where it fails, or the path is too long.
bool withAddress(const QByteArray &path, int descriptor, int (*act)(int, const sockaddr *, socklen_t))
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path)) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::ranges::copy(path, address.sun_path);
    return act(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
}

/// What becomes of connecting without waiting: 0, or the error's number.
int connectError(const QByteArray &path)
{
    const OwnedSocket probe;
    const bool isConnected =
        probe.descriptor() >= 0 && stopWaiting(probe.descriptor()) && withAddress(path, probe.descriptor(), ::connect);
    return isConnected ? 0 : errno;
}

/// Opens a listening socket; -1 and errno where that fails.
int listeningSocket(const QByteArray &path)
{
    constexpr mode_t ownerOnly = 0600;
    constexpr int longestQueue = 256;
    // It gets its name when it listens, so that all who see the file are let in. Addresses may not be long.
    const QByteArray unready = path.left(path.lastIndexOf('/') + 1) + ".new-" + QByteArray::number(::getpid());
    ::unlink(unready.constData());
    OwnedSocket socket;
    if (socket.descriptor() < 0 || !stopWaiting(socket.descriptor()) ||
        !withAddress(unready, socket.descriptor(), ::bind))
        return -1;
    // Until it listens it takes nobody in, so it never lies there open to others.
    if (::chmod(unready.constData(), ownerOnly) == 0 && ::listen(socket.descriptor(), longestQueue) == 0 &&
        ::rename(unready.constData(), path.constData()) == 0)
        return socket.release();
    const int error = errno;
    ::unlink(unready.constData());
    errno = error;
    return -1;
}

bool setSendTimeLimit(int descriptor, std::chrono::milliseconds limit)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit);
    const timeval value{seconds.count(), std::chrono::microseconds(limit - seconds).count()};
    return ::setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &value, sizeof value) == 0;
}

}

std::expected<Cancellable, ListenError> UnixLocalSockets::listen(const QString &address, ConnectionHandler handler)
{
    const QByteArray path = QFile::encodeName(address);
    // A file says nothing about who lives behind it.
    const int found = fileStatus(path, SymbolicLinks::keep) ? connectError(path) : ENOENT;
    // A listener with a full queue makes others wait: it lives.
    if (found == 0 || found == EAGAIN)
        return std::unexpected(ListenError::taken);
    // After any error but these it is not sure that nobody does, so the file is left alone.
    const bool isFree = found == ECONNREFUSED || found == ENOENT;
    const int descriptor = isFree ? listeningSocket(path) : -1;
    if (descriptor < 0) {
        const QString reason = QString::fromLocal8Bit(std::strerror(isFree ? errno : found));
        Logger(QStringLiteral("UnixLocalSockets"))
            .error(QStringLiteral("the socket %1 cannot be opened: %2").arg(address, reason));
        return std::unexpected(ListenError::failed);
    }
    auto listener = std::make_shared<UnixLocalListener>(descriptor, path, m_isPeerTrusted, std::move(handler));
    return Cancellable([listener = std::move(listener)]() mutable { listener.reset(); });
}

std::unique_ptr<LocalConnection> UnixLocalSockets::connect(const QString &address, std::chrono::milliseconds patience)
{
    const QByteArray path = QFile::encodeName(address);
    OwnedSocket socket;
    if (socket.descriptor() < 0 || !setSendTimeLimit(socket.descriptor(), patience))
        return nullptr;
    bool isConnected = false;
    do {
        isConnected = withAddress(path, socket.descriptor(), ::connect);
    } while (!isConnected && errno == EINTR);
    if (!isConnected || (m_isPeerTrusted && !m_isPeerTrusted(socket.descriptor())) || !stopWaiting(socket.descriptor()))
        return nullptr;
    return std::make_unique<UnixLocalConnection>(socket.release());
}

}
