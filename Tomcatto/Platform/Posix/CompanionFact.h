#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/SharedFactSource.h"

class QProcess;

namespace tomcatto {

/// A fact that a companion tells, which runs while somebody watches: what asking for it loads goes again, and what it
/// asks holds nobody up. One that ends by itself is started anew, after a time that grows. Main thread only.
class CompanionFact final : public SharedFactSource
{
public:
    /// @param program writes a line for each change, "yes", "no" or "untold", until its standard input is closed.
    CompanionFact(QString program, MainRunLoop &runLoop);
    CompanionFact(const CompanionFact &) = delete;
    CompanionFact &operator=(const CompanionFact &) = delete;
    ~CompanionFact() override;

private:
    void begin() override;
    void end() override;
    void start();
    void read();
    void lose(const QString &reason);

    const QString m_program;
    MainRunLoop &m_runLoop;
    Logger m_logger{QStringLiteral("CompanionFact")};
    QProcess *m_process = nullptr;
    std::chrono::milliseconds m_rest{0};
    Cancellable m_nextStart;
    Cancellable m_soundness;
    QObject m_context;
};

}
