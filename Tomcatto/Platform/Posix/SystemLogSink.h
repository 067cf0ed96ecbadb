#pragma once

#include "Foundation/Logger.h"

#include <memory>

namespace tomcatto {

/// What of the log goes to standard error as well.
enum class StandardErrorCopy {
    nothing,
    /// Lines of the level error. A fault is left out: the one who logs it ends the process and says why there.
    errors,
    everything,
};

/// Sends log lines to the system log: to the journal with a field each for subsystem and category where it runs, else
/// to syslog; and a copy to standard error where that is wanted. Copies share their state, so one may be handed to
/// `setLogSink` and another kept to change the copy. Any thread; a line is written whole.
class SystemLogSink final
{
public:
    /// Without a copy to standard error.
    SystemLogSink();
    /// @param journalSocket the address that the journal takes lines at.
    /// @param standardError the descriptor that copies go to.
    SystemLogSink(const QByteArray &journalSocket, int standardError);

    /// Writes one line. Failures have nobody left to be told.
    void operator()(LogLevel level, const QString &category, const QString &message) const;
    /// Sets what is copied to standard error from now on.
    void copyToStandardError(StandardErrorCopy copy) const;

private:
    class State;

    std::shared_ptr<State> m_state;
};

}
