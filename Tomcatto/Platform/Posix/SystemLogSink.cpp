#include "Platform/Posix/SystemLogSink.h"

#include "Foundation/ApplicationIdentity.h"
#include "Foundation/EnumTexts.h"
#include "Platform/Posix/DescriptorFlags.h"

#include <atomic>
#include <mutex>
#include <poll.h>
#include <QtCore/QDateTime>
#include <QtCore/QtEndian>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

namespace tomcatto {

namespace {

constexpr const char *identifier = "tomcatto";

int priorityOf(LogLevel level)
{
    constexpr std::array priorities{LOG_DEBUG, LOG_INFO, LOG_ERR, LOG_CRIT};
    return priorities.at(static_cast<std::size_t>(level));
}

QString nameOf(LogLevel level)
{
    return textOf(std::array{"debug", "info", "error", "fault"}, level);
}

/// One field of the journal's protocol. A value of several lines has its length before it, in little-endian order.
QByteArray field(const QByteArray &name, const QByteArray &value)
{
    if (!value.contains('\n'))
        return name + '=' + value + '\n';
    const quint64 length = qToLittleEndian(static_cast<quint64>(value.size()));
    return name + '\n' + QByteArray::fromRawData(reinterpret_cast<const char *>(&length), sizeof length) + value + '\n';
}

}

class SystemLogSink::State final
{
public:
    State(const QByteArray &journalSocket, int standardError)
        : m_standardError(standardError)
    {
        m_journal.sun_family = AF_UNIX;
        qstrncpy(m_journal.sun_path, journalSocket.constData(), sizeof m_journal.sun_path);
        m_socket = closedOnReplacement(::socket(AF_UNIX, SOCK_DGRAM, 0));
        // A journal that hangs may hold a line up, not the application.
        constexpr timeval longestWait{0, 100'000};
        ::setsockopt(m_socket, SOL_SOCKET, SO_SNDTIMEO, &longestWait, sizeof longestWait);
        ::openlog(identifier, LOG_PID, LOG_USER);
    }
    State(const State &) = delete;
    State &operator=(const State &) = delete;
    ~State()
    {
        if (m_socket >= 0)
            ::close(m_socket);
    }

    void send(LogLevel level, const QByteArray &category, const QByteArray &message) const
    {
        if (sendToJournal(level, category, message))
            return;
        ::syslog(priorityOf(level), "%s: %s", category.constData(), message.constData());
    }
    void copy(LogLevel level, const QString &category, const QString &message) const
    {
        if (!isCopied(level))
            return;
        QString text = message;
        text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
        const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
        const QString line = time + QLatin1Char(' ') + nameOf(level) + QLatin1Char(' ') + category +
                             QLatin1String(": ") + text + QLatin1Char('\n');
        const QByteArray bytes = line.toUtf8();
        const std::scoped_lock lock(m_copying);
        // A reader that stands still may hold a copy up, not the application; the system's log has the line.
        constexpr int longestWaitMilliseconds = 100;
        pollfd output{m_standardError, POLLOUT, 0};
        if (::poll(&output, 1, longestWaitMilliseconds) == 0)
            return;
        [[maybe_unused]] const auto size =
            ::write(m_standardError, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }

    std::atomic<StandardErrorCopy> standardErrorCopy = StandardErrorCopy::nothing;

private:
    [[nodiscard]] bool isCopied(LogLevel level) const
    {
        const StandardErrorCopy copied = standardErrorCopy;
        return copied == StandardErrorCopy::everything ||
               (copied == StandardErrorCopy::errors && level == LogLevel::error);
    }
    [[nodiscard]] bool sendToJournal(LogLevel level, const QByteArray &category, const QByteArray &message) const
    {
        // Below what a datagram holds by default.
        constexpr qsizetype longestMessage = 65'536;
        const QByteArray fields =
            field("MESSAGE", message.left(longestMessage)) + field("PRIORITY", QByteArray::number(priorityOf(level))) +
            field("SYSLOG_IDENTIFIER", identifier) + field("TOMCATTO_SUBSYSTEM", applicationIdentifier.toUtf8()) +
            field("TOMCATTO_CATEGORY", category);
        const auto size = ::sendto(m_socket, fields.constData(), static_cast<std::size_t>(fields.size()), MSG_NOSIGNAL,
                                   reinterpret_cast<const sockaddr *>(&m_journal), sizeof m_journal);
        return size >= 0;
    }

    sockaddr_un m_journal{};
    int m_socket = -1;
    int m_standardError;
    mutable std::mutex m_copying;
};

SystemLogSink::SystemLogSink(const QByteArray &journalSocket, int standardError)
    : m_state(std::make_shared<State>(journalSocket, standardError))
{
}

void SystemLogSink::operator()(LogLevel level, const QString &category, const QString &message) const
{
    m_state->send(level, category.toUtf8(), message.toUtf8());
    m_state->copy(level, category, message);
}

void SystemLogSink::copyToStandardError(StandardErrorCopy copy) const
{
    m_state->standardErrorCopy = copy;
}

}
