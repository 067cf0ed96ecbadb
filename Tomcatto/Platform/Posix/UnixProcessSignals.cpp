#include "Platform/Posix/UnixProcessSignals.h"

#include "Foundation/FatalError.h"
#include "Platform/Posix/DescriptorFlags.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <QtCore/QSocketNotifier>
#include <unistd.h>

namespace tomcatto {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};
constexpr std::array terminalSignals{SIGCONT, SIGWINCH};

// A handler gets no context of its own.
std::atomic<int> pipeWriteEnd{-1};
std::atomic<bool> hasTerminationCome{false};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void setAction(int signalNumber, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signalNumber, &action, nullptr);
}

bool isTermination(int signalNumber)
{
    return signalNumber == SIGTERM || signalNumber == SIGINT || signalNumber == SIGHUP;
}

/// Runs between any two instructions of the program: only async-signal-safe calls.
void forward(int signalNumber)
{
    const int savedErrno = errno;
    if (isTermination(signalNumber)) {
        hasTerminationCome = true;
        setAction(SIGTERM, SIG_DFL);
        setAction(SIGINT, SIG_DFL);
        setAction(SIGHUP, SIG_IGN);
    }
    const auto byte = static_cast<unsigned char>(signalNumber);
    // A full pipe already holds more than the loop has seen.
    [[maybe_unused]] const auto written = ::write(pipeWriteEnd.load(), &byte, 1);
    errno = savedErrno;
}

bool isSwitchedOff(int signalNumber)
{
    struct sigaction action = {};
    ::sigaction(signalNumber, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

}

UnixProcessSignals::UnixProcessSignals()
{
    std::array<int, 2> ends{};
    const bool isOpen = ::pipe(ends.data()) == 0 && stopWaiting(closedOnReplacement(ends[0])) &&
                        stopWaiting(closedOnReplacement(ends[1]));
    if (!isOpen)
        fatalError(QStringLiteral("No pipe for the process's signals"));
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
    pipeWriteEnd = m_writeEnd;
    hasTerminationCome = false;
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &UnixProcessSignals::readPipe);
    for (const int signalNumber : terminationSignals) {
        if (signalNumber != SIGHUP || !isSwitchedOff(SIGHUP))
            setAction(signalNumber, forward);
    }
    for (const int signalNumber : terminalSignals)
        setAction(signalNumber, forward);
}

UnixProcessSignals::~UnixProcessSignals()
{
    for (const int signalNumber : terminationSignals) {
        if (!isSwitchedOff(signalNumber))
            setAction(signalNumber, SIG_DFL);
    }
    for (const int signalNumber : terminalSignals)
        setAction(signalNumber, SIG_DFL);
    pipeWriteEnd = -1;
    m_notifier.reset();
    ::close(m_readEnd);
    ::close(m_writeEnd);
}

Cancellable UnixProcessSignals::onTerminationRequest(std::function<void()> handler)
{
    return m_terminationRequested.add(std::move(handler));
}

bool UnixProcessSignals::isTerminationRequested() const
{
    return hasTerminationCome;
}

Cancellable UnixProcessSignals::onTerminalChanged(std::function<void()> handler)
{
    return m_terminalChanged.add(std::move(handler));
}

void UnixProcessSignals::readPipe()
{
    // Several signals of a kind since the last turn are one event.
    bool isTerminationRequested = false;
    bool hasTerminalChanged = false;
    std::array<unsigned char, 64> bytes{};
    for (ssize_t size = 1; size > 0;) {
        size = ::read(m_readEnd, bytes.data(), bytes.size());
        for (ssize_t index = 0; index < size; ++index) {
            if (isTermination(bytes.at(static_cast<std::size_t>(index))))
                isTerminationRequested = true;
            else
                hasTerminalChanged = true;
        }
    }
    if (hasTerminalChanged)
        m_terminalChanged.call();
    if (isTerminationRequested)
        m_terminationRequested.call();
}

}
