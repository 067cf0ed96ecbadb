#pragma once

#include "Foundation/HandlerList.h"
#include "Platform/Ports/ProcessSignals.h"

#include <QtCore/QObject>

class QSocketNotifier;

namespace tomcatto {

/// The process's signals on the main loop, through a pipe. One object at a time, since signal handlers belong to the
/// process; it outlives no other thread that changes them.
///
/// After the first request to end, terminate and interrupt have their usual effect again, so a second one ends a
/// process that hangs. Hang-up has not: a closing terminal sends it more than once. A hang-up that the parent has
/// switched off stays off. Writing to a closed pipe, or past the size that files may have, is an error, no signal, from
/// the construction on.
class UnixProcessSignals final : public QObject, public ProcessSignals
{
    Q_OBJECT

public:
    UnixProcessSignals();
    /// Gives the signals their usual effect again.
    ~UnixProcessSignals() override;

    [[nodiscard]] Cancellable onTerminationRequest(std::function<void()> handler) override;
    [[nodiscard]] bool isTerminationRequested() const override;
    [[nodiscard]] Cancellable onTerminalChanged(std::function<void()> handler) override;

private:
    void readPipe();

    int m_readEnd = -1;
    int m_writeEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    HandlerList m_terminationRequested;
    HandlerList m_terminalChanged;
};

}
