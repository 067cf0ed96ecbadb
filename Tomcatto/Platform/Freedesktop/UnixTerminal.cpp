#include "Platform/Freedesktop/UnixTerminal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace tomcatto {

namespace {

/// What the stop handler restores; written only while that handler is not installed.
struct StopState
{
    int descriptor = -1;
    termios settings{};
};
StopState stopState;
volatile std::sig_atomic_t hasStopped = 0;

void setStopHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGTSTP, &action, nullptr);
}

/// Restores the terminal, then stops the process as the signal does by itself. Only async-signal-safe calls.
void restoreAndStop(int signalNumber)
{
    const int savedErrno = errno;
    // In the background the terminal is another process's, and touching it would stop this one for good.
    if (::tcgetpgrp(stopState.descriptor) == ::getpgrp())
        ::tcsetattr(stopState.descriptor, TCSANOW, &stopState.settings);
    hasStopped = 1;
    setStopHandler(SIG_DFL);
    ::raise(signalNumber);
    sigset_t stopSignal;
    sigset_t before;
    ::sigemptyset(&stopSignal);
    ::sigaddset(&stopSignal, signalNumber);
    ::pthread_sigmask(SIG_UNBLOCK, &stopSignal, &before);
    // Here the process stands still, and here it goes on.
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    setStopHandler(restoreAndStop);
    errno = savedErrno;
}

/// Waits a moment for an output that takes nothing now; false when it stays so.
bool waitForOutput(int descriptor)
{
    constexpr int longestWaitMilliseconds = 1000;
    pollfd output{descriptor, POLLOUT, 0};
    return ::poll(&output, 1, longestWaitMilliseconds) > 0;
}

}

UnixTerminal::UnixTerminal(ProcessSignals &signals, int input, int output)
    : m_input(input)
    , m_output(output)
    , m_resumption(signals.onTerminalChanged([this] { enterKeyMode(); }))
{
}

UnixTerminal::~UnixTerminal()
{
    leaveKeyMode();
}

bool UnixTerminal::isInteractive() const
{
    return ::isatty(m_input) != 0 && ::isatty(m_output) != 0 && isForeground();
}

bool UnixTerminal::isForeground() const
{
    return ::tcgetpgrp(m_input) == ::getpgrp();
}

int UnixTerminal::columns() const
{
    constexpr int usualColumns = 80;
    winsize size{};
    const bool isKnown = ::ioctl(m_output, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

Cancellable UnixTerminal::readKeys(std::function<void(QChar)> handler)
{
    leaveKeyMode();
    if (::tcgetattr(m_input, &stopState.settings) != 0)
        return {};
    stopState.descriptor = m_input;
    m_decoder = {};
    m_keyHandler = std::make_shared<std::function<void(QChar)>>(std::move(handler));
    m_notifier = std::make_unique<QSocketNotifier>(m_input, QSocketNotifier::Read);
    m_notifier->setEnabled(false);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &UnixTerminal::readInput);
    setStopHandler(restoreAndStop);
    enterKeyMode();
    return Cancellable([terminal = QPointer(this)] {
        if (terminal)
            terminal->leaveKeyMode();
    });
}

void UnixTerminal::enterKeyMode()
{
    if (!m_keyHandler || (m_notifier->isEnabled() && hasStopped == 0) || !isForeground())
        return;
    termios settings = stopState.settings;
    settings.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    hasStopped = 0;
    ::tcsetattr(m_input, TCSANOW, &settings);
    m_notifier->setEnabled(true);
}

void UnixTerminal::leaveKeyMode()
{
    if (!m_keyHandler)
        return;
    m_keyHandler.reset();
    // It may be the one that is delivering the key which led here.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    setStopHandler(SIG_DFL);
    if (isForeground())
        ::tcsetattr(m_input, TCSANOW, &stopState.settings);
}

void UnixTerminal::readInput()
{
    // Reading in the background would stop the process.
    if (!isForeground()) {
        m_notifier->setEnabled(false);
        return;
    }
    std::array<char, 256> bytes{};
    const auto size = ::read(m_input, bytes.data(), bytes.size());
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (size <= 0) {
        // An ended input stays readable for ever.
        leaveKeyMode();
        return;
    }
    const QPointer self(this);
    for (const QChar key : m_decoder.decode(QByteArrayView(bytes.data(), size))) {
        const auto handler = self ? m_keyHandler : nullptr;
        if (!handler)
            return;
        (*handler)(key);
    }
}

void UnixTerminal::write(const QString &text)
{
    enterKeyMode();
    const QByteArray bytes = text.toUtf8();
    for (qsizetype done = 0; done < bytes.size() && !m_isOutputClosed;) {
        const auto size = ::write(m_output, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (size >= 0)
            done += size;
        else if (errno == EAGAIN && !waitForOutput(m_output))
            return;
        else if (errno != EAGAIN && errno != EINTR)
            m_isOutputClosed = true;
    }
}

}
