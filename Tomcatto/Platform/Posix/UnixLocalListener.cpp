#include "Platform/Posix/UnixLocalListener.h"

#include "Foundation/Logger.h"
#include "Platform/Posix/DescriptorFlags.h"
#include "Platform/Posix/UnixLocalConnection.h"

#include <cerrno>
#include <cstring>
#include <QtCore/QTimer>
#include <sys/socket.h>
#include <unistd.h>

namespace tomcatto {

UnixLocalListener::UnixLocalListener(int descriptor, QByteArray path, UnixLocalSockets::PeerCheck isPeerTrusted,
                                     LocalSockets::ConnectionHandler handler)
    : m_descriptor(descriptor)
    , m_path(std::move(path))
    , m_file(fileStatus(m_path, SymbolicLinks::keep))
    , m_isPeerTrusted(isPeerTrusted)
    , m_handler(std::move(handler))
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &UnixLocalListener::acceptOne);
}

UnixLocalListener::~UnixLocalListener()
{
    m_notifier.setEnabled(false);
    if (const auto file = fileStatus(m_path, SymbolicLinks::keep); file && m_file && file->identity == m_file->identity)
        ::unlink(m_path.constData());
    ::close(m_descriptor);
}

void UnixLocalListener::acceptOne()
{
    // One at a time, so that those already connected are heard between a crowd of others.
    const int descriptor = closedOnReplacement(::accept(m_descriptor, nullptr, nullptr));
    if (descriptor < 0) {
        if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
            pause(errno);
        return;
    }
    m_isShort = false;
    auto connection = std::make_unique<UnixLocalConnection>(descriptor);
    if ((m_isPeerTrusted && !m_isPeerTrusted(descriptor)) || !stopWaiting(descriptor))
        return;
    // It may end the listening, and itself with it.
    const auto handler = m_handler;
    handler(std::move(connection));
}

void UnixLocalListener::pause(int reason)
{
    // Without descriptors or memory left the connection goes on waiting, and the loop would spin on it.
    constexpr std::chrono::milliseconds breath{250};
    m_notifier.setEnabled(false);
    QTimer::singleShot(breath, this, [this] { m_notifier.setEnabled(true); });
    if (!std::exchange(m_isShort, true))
        Logger(QStringLiteral("UnixLocalListener"))
            .error(QStringLiteral("A connection has to wait: %1").arg(QString::fromLocal8Bit(std::strerror(reason))));
}

}
