#include "Platform/Posix/UnixTerminal.h"

#include "Foundation/FatalError.h"

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

/// What the handlers of a stop and of a fatal error restore; written only while these are not installed.
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

/// Only async-signal-safe calls.
void restoreSettings()
{
    // In the background the terminal is another process's, and touching it would stop this one for good.
    if (::tcgetpgrp(stopState.descriptor) == ::getpgrp())
        ::tcsetattr(stopState.descriptor, TCSANOW, &stopState.settings);
}

/// Restores the terminal, then stops the process as the signal does by itself. Only async-signal-safe calls.
void restoreAndStop(int signalNumber)
{
    const int savedErrno = errno;
    restoreSettings();
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

}

int columnsOf(int output)
{
    constexpr int usualColumns = 80;
    winsize size{};
    const bool isKnown = ::ioctl(output, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

bool isTerminal(int output)
{
    return ::isatty(output) == 1;
}

bool takesColours(int output)
{
    const QByteArray kind = qgetenv("TERM");
    return isTerminal(output) && qEnvironmentVariableIsEmpty("NO_COLOR") && !kind.isEmpty() && kind != "dumb";
}

UnixTerminal::UnixTerminal(ProcessSignals &signals, int input, int output)
    : m_input(input)
    , m_output(output)
    , m_text(output)
    , m_resumption(signals.onTerminalChanged([this] {
        // A stop that cannot be handled leaves no other trace.
        m_isInKeyMode = false;
        enterKeyMode();
    }))
{
}

UnixTerminal::~UnixTerminal()
{
    leaveKeyMode();
}

bool UnixTerminal::isTerminal() const
{
    return ::isatty(m_input) != 0 && ::isatty(m_output) != 0;
}

bool UnixTerminal::isInteractive() const
{
    return isTerminal() && isForeground();
}

bool UnixTerminal::isForeground() const
{
    return ::tcgetpgrp(m_input) == ::getpgrp();
}

bool UnixTerminal::hasInput() const
{
    pollfd input{.fd = m_input, .events = POLLIN, .revents = 0};
    return ::poll(&input, 1, 0) > 0;
}

bool UnixTerminal::showsErrors() const
{
    return ::isatty(STDERR_FILENO) == 1;
}

int UnixTerminal::columns() const
{
    return columnsOf(m_output);
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
    setFatalErrorHook(restoreSettings);
    enterKeyMode();
    return Cancellable([terminal = QPointer(this)] {
        if (terminal)
            terminal->leaveKeyMode();
    });
}

void UnixTerminal::enterKeyMode()
{
    if (!m_keyHandler || (m_isInKeyMode && hasStopped == 0) || !isForeground())
        return;
    termios settings = stopState.settings;
    settings.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    hasStopped = 0;
    ::tcsetattr(m_input, TCSANOW, &settings);
    m_notifier->setEnabled(true);
    m_isInKeyMode = true;
}

void UnixTerminal::leaveKeyMode()
{
    if (!m_keyHandler)
        return;
    m_keyHandler.reset();
    // It may be the one that is delivering the key which led here.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    m_isInKeyMode = false;
    setStopHandler(SIG_DFL);
    setFatalErrorHook(nullptr);
    restoreSettings();
}

void UnixTerminal::readInput()
{
    // Reading in the background would stop the process.
    if (!isForeground()) {
        m_notifier->setEnabled(false);
        m_isInKeyMode = false;
        return;
    }
    // The shell may have taken what woke this process and handed over the terminal since; reading would wait for more.
    if (!hasInput())
        return;
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
    m_text.write(text.toUtf8());
}

}
