#include "Platform/Freedesktop/DisplayProbe.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <netdb.h>
#include <poll.h>
#include <QtCore/QFile>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tomcatto {

namespace {

constexpr int remoteLimitMilliseconds = 500;
constexpr int answerLimitMilliseconds = 500;
constexpr int firstX11Port = 6000;

// Of the Wayland protocol: objects are known by numbers, and so are their requests and events.
constexpr quint32 waylandDisplay = 1;
constexpr quint32 waylandRegistry = 2;
constexpr quint32 waylandCallback = 3;
constexpr quint32 syncRequest = 0;
constexpr quint32 getRegistryRequest = 1;
constexpr qsizetype waylandHeader = 8;

/// Opens a socket of this machine. A path that begins with a zero byte is an abstract one. @return -1 on failure
int openLocal(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return -1;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(path.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0 || ::connect(socket, reinterpret_cast<const sockaddr *>(&address), length) == 0)
        return socket;
    ::close(socket);
    return -1;
}

bool opensLocal(const QByteArray &path)
{
    const int socket = openLocal(path);
    if (socket < 0)
        return false;
    ::close(socket);
    return true;
}

/// Asks a compositor for everything it offers. @return its answer, which ends with the callback; empty without one
QByteArray askForGlobals(int socket)
{
    constexpr quint32 size = 12;
    const std::array<quint32, 6> requests{waylandDisplay, (size << 16U) | getRegistryRequest, waylandRegistry,
                                          waylandDisplay, (size << 16U) | syncRequest,        waylandCallback};
    if (::send(socket, requests.data(), sizeof requests, MSG_NOSIGNAL) != static_cast<ssize_t>(sizeof requests))
        return {};
    QByteArray answer;
    std::array<char, 4096> part{};
    for (;;) {
        pollfd waiting{socket, POLLIN, 0};
        if (::poll(&waiting, 1, answerLimitMilliseconds) != 1)
            return {};
        const ssize_t length = ::recv(socket, part.data(), part.size(), 0);
        if (length <= 0)
            return {};
        answer.append(part.data(), length);
        for (qsizetype at = 0; at + waylandHeader <= answer.size();) {
            std::array<quint32, 2> header{};
            std::memcpy(header.data(), answer.constData() + at, sizeof header);
            if (header[0] == waylandCallback)
                return answer;
            at += std::max<qsizetype>(header[1] >> 16U, waylandHeader);
        }
    }
}

bool opensRemoteAddress(const addrinfo &place)
{
    const int socket = ::socket(place.ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return false;
    const bool isUnderWay = ::connect(socket, place.ai_addr, place.ai_addrlen) == 0 || errno == EINPROGRESS;
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

DisplayProbe::DisplayProbe(const QProcessEnvironment &environment)
    : m_environment(environment)
{
}

bool DisplayProbe::isReachable() const
{
    return isWaylandReachable() || isX11Reachable();
}

QByteArray DisplayProbe::waylandSocket() const
{
    const QString name = m_environment.value(QStringLiteral("WAYLAND_DISPLAY"));
    if (name.isEmpty())
        return {};
    const QString folder = m_environment.value(QStringLiteral("XDG_RUNTIME_DIR"));
    return QFile::encodeName(name.startsWith(u'/') ? name : folder + u'/' + name);
}

bool DisplayProbe::isWaylandReachable() const
{
    return opensLocal(waylandSocket());
}

bool DisplayProbe::isWaylandWithoutSeat() const
{
    const int socket = openLocal(waylandSocket());
    if (socket < 0)
        return false;
    const QByteArray globals = askForGlobals(socket);
    ::close(socket);
    return !globals.isEmpty() && !globals.contains(QByteArrayView("wl_seat"));
}

bool DisplayProbe::isX11Reachable() const
{
    // [host]:display[.screen]
    const QByteArray display = m_environment.value(QStringLiteral("DISPLAY")).toLocal8Bit();
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
