#include "Platform/Freedesktop/SilentBuses.h"

#include "Foundation/Logger.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <poll.h>
#include <QtCore/QByteArray>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tomcatto {

namespace {

constexpr int answerLimitMilliseconds = 1000;

/// The path of the first place of an address, after a zero byte where it is an abstract one; empty for other kinds.
QByteArray socketPath(const QByteArray &address)
{
    const QByteArray first = address.split(';').first();
    for (const QByteArray &part : first.mid(first.indexOf(':') + 1).split(',')) {
        if (first.startsWith("unix:") && part.startsWith("path="))
            return QByteArray::fromPercentEncoding(part.mid(5));
        if (first.startsWith("unix:") && part.startsWith("abstract="))
            return '\0' + QByteArray::fromPercentEncoding(part.mid(9));
    }
    return {};
}

/// Whether the other end takes the first line of a conversation and says nothing.
bool isSilent(int socket, const sockaddr_un &address, socklen_t length)
{
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&address), length) != 0)
        return errno == EAGAIN;
    const QByteArray line = QByteArray("\0AUTH EXTERNAL ", 15) + QByteArray::number(::getuid()).toHex() + "\r\n";
    pollfd waiting{socket, POLLIN, 0};
    return ::send(socket, line.constData(), static_cast<std::size_t>(line.size()), MSG_NOSIGNAL) == line.size() &&
           ::poll(&waiting, 1, answerLimitMilliseconds) == 0;
}

bool isSilent(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto size = static_cast<std::size_t>(path.size());
    if (size == 0 || size >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.constData(), size);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return false;
    const bool result = isSilent(socket, address, static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + size));
    ::close(socket);
    return result;
}

/// Whether it was to be avoided.
bool avoid(const char *variable, const QByteArray &usualAddress)
{
    const QByteArray address = qgetenv(variable);
    if (!isSilent(socketPath(address.isEmpty() ? usualAddress : address)))
        return false;
    Logger(QStringLiteral("SilentBuses"))
        .error(QStringLiteral("a message bus does not answer, so Tomcatto goes without: ") +
               QString::fromLatin1(variable));
    qputenv(variable, "disabled:");
    return true;
}

}

QByteArrayList avoidSilentBuses()
{
    QByteArrayList avoided;
    if (avoid("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus"))
        avoided << "DBUS_SESSION_BUS_ADDRESS";
    if (avoid("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/run/dbus/system_bus_socket"))
        avoided << "DBUS_SYSTEM_BUS_ADDRESS";
    return avoided;
}

}
