#pragma once

#include "Platform/Ports/ApplicationPlatform.h"

namespace tomcatto {

/// Sends log lines to the system log: to the journal with a field each for subsystem and category where it runs, else
/// to syslog; and a copy to standard error where that is wanted. Copies share their state, so one may be handed to
/// `setLogSink` and another kept to change the copy. Any thread; a line is written whole.
class SystemLogSink final
{
public:
    /// Without a copy to standard error at first.
    /// @param journalSocket the address that the journal takes lines at; empty where there is none.
    /// @param standardError the descriptor that copies go to.
    explicit SystemLogSink(const QByteArray &journalSocket, int standardError = 2);

    /// Writes one line. Failures have nobody left to be told.
    void operator()(LogLevel level, const QString &category, const QString &message) const;
    /// Sets what is copied to standard error from now on.
    void copyToStandardError(StandardErrorCopy copy) const;

private:
    class State;

    std::shared_ptr<State> m_state;
};

}
