#include "Platform/Posix/DisplayProbe.h"

#include "Platform/Posix/DescriptorFlags.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tomcatto {

namespace {

constexpr int remoteLimitMilliseconds = 500;
constexpr int firstX11Port = 6000;

/// Whether a socket of this machine opens. A path that begins with a zero byte is an abstract one.
bool opensLocal(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(path.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (socket < 0)
        return false;
    const bool isOpen = ::connect(socket, reinterpret_cast<const sockaddr *>(&address), length) == 0;
    ::close(socket);
    return isOpen;
}

bool opensRemoteAddress(const addrinfo &place)
{
    const int socket = ::socket(place.ai_family, SOCK_STREAM, 0);
    if (socket < 0)
        return false;
    const bool isUnderWay =
        stopWaiting(socket) && (::connect(socket, place.ai_addr, place.ai_addrlen) == 0 || errno == EINPROGRESS);
    pollfd waiting{socket, POLLOUT, 0};
    int error = 0;
    socklen_t size = sizeof error;
    const bool isOpen = isUnderWay && ::poll(&waiting, 1, remoteLimitMilliseconds) == 1 &&
                        ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
    ::close(socket);
    return isOpen;
}

bool opensRemote(const QByteArray &host, int port)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *places = nullptr;
    if (::getaddrinfo(host.constData(), QByteArray::number(port).constData(), &hints, &places) != 0)
        return false;
    const bool isOpen = opensRemoteAddress(*places);
    ::freeaddrinfo(places);
    return isOpen;
}

}

DisplayProbe::DisplayProbe(std::function<QByteArray(const char *name)> variable)
    : m_variable(std::move(variable))
{
}

bool DisplayProbe::isReachable() const
{
    return isWaylandReachable() || isX11Reachable();
}

bool DisplayProbe::isWaylandReachable() const
{
    const QByteArray name = m_variable("WAYLAND_DISPLAY");
    return !name.isEmpty() && opensLocal(name.startsWith('/') ? name : m_variable("XDG_RUNTIME_DIR") + '/' + name);
}

bool DisplayProbe::isX11Reachable() const
{
    // [host]:display[.screen]
    const QByteArray display = m_variable("DISPLAY");
    const auto colon = display.lastIndexOf(':');
    if (colon < 0)
        return false;
    const auto dot = display.indexOf('.', colon);
    bool isNumber = false;
    const int number = display.mid(colon + 1, dot < 0 ? -1 : dot - colon - 1).toInt(&isNumber);
    if (!isNumber || number < 0)
        return false;
    const QByteArray host = display.left(colon);
    if (!host.isEmpty() && host != "unix")
        return opensRemote(host, firstX11Port + number);
    const QByteArray path = "/tmp/.X11-unix/X" + QByteArray::number(number);
    return opensLocal(path) || opensLocal(QByteArray(1, '\0') + path);
}

}
