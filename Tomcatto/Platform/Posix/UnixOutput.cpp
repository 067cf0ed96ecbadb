#include "Platform/Posix/UnixOutput.h"

#include "Foundation/Logger.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <QtCore/QSocketNotifier>
#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace {

/// Opens the terminal or pipe behind a descriptor once more, in a mode that never waits and is this process's alone; -1
/// where that is not allowed or, as for a file, not needed.
int openAgain(int descriptor)
{
    struct stat status = {};
    const bool isPipe = ::fstat(descriptor, &status) == 0 && S_ISFIFO(status.st_mode);
    if (!isPipe && ::isatty(descriptor) == 0)
        return -1;
    const QByteArray path = "/dev/fd/" + QByteArray::number(descriptor);
    return ::open(path.constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}

UnixOutput::UnixOutput(int descriptor)
    : m_ownDescriptor(openAgain(descriptor))
    , m_descriptor(m_ownDescriptor >= 0 ? m_ownDescriptor : descriptor)
{
}

UnixOutput::~UnixOutput()
{
    constexpr int longestWaitMilliseconds = 1000;
    if (!m_left.isEmpty() && isReady(longestWaitMilliseconds))
        writeLeft();
    m_notifier.reset();
    if (m_ownDescriptor >= 0)
        ::close(m_ownDescriptor);
}

void UnixOutput::write(const QByteArray &text)
{
    if (m_isClosed)
        return;
    if (text.startsWith('\r'))
        m_left.truncate(m_left.lastIndexOf('\n') + 1);
    constexpr qsizetype mostKept = 1 << 20;
    if (m_left.size() + text.size() > mostKept) {
        Logger(QStringLiteral("UnixOutput")).error(QStringLiteral("nobody reads the output; a line of it is left out"));
        return;
    }
    m_left += text;
    writeLeft();
}

bool UnixOutput::isReady(int longestWaitMilliseconds) const
{
    pollfd output{m_descriptor, POLLOUT, 0};
    return ::poll(&output, 1, longestWaitMilliseconds) > 0;
}

void UnixOutput::writeLeft()
{
    // Asked before each piece, for the descriptors that could not be opened again. A pipe that is ready takes this
    // much.
    constexpr qsizetype largestPiece = PIPE_BUF;
    while (!m_left.isEmpty() && isReady(0)) {
        const auto piece = static_cast<std::size_t>(std::min(m_left.size(), largestPiece));
        const auto size = ::write(m_descriptor, m_left.constData(), piece);
        if (size > 0) {
            m_left.remove(0, size);
        } else if (size == 0 || errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            m_isClosed = true;
            m_left.clear();
        }
    }
    watch(!m_left.isEmpty());
}

void UnixOutput::watch(bool isWanted)
{
    if (!m_notifier) {
        if (!isWanted)
            return;
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Write);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &UnixOutput::writeLeft);
    }
    m_notifier->setEnabled(isWanted);
}

}
