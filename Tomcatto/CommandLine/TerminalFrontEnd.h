#pragma once

#include "Composition/AppDependencies.h"
#include "Control/CommandTable.h"
#include "Control/StatusSource.h"
#include "Platform/Ports/OncePerTurn.h"
#include "Platform/Ports/ProcessSignals.h"
#include "Platform/Ports/Terminal.h"

namespace tomcatto {

/// The application in a terminal: one line with the pill, the phase, the round and today's goal, and single keys. Where
/// input or output is not a terminal, and in the background of one until it is first brought to the foreground, it
/// prints a line for each transition and takes no keys. Main thread only.
class TerminalFrontEnd final : public QObject
{
    Q_OBJECT

public:
    TerminalFrontEnd(AppDependencies &dependencies, const CommandTable &commands, const StatusSource &status,
                     Terminal &terminal, ProcessSignals &processSignals, QObject *parent = nullptr);
    ~TerminalFrontEnd() override;

    /// Shows itself and takes keys from now on.
    void start();

private:
    void startInteractive();
    void followTerminal();
    void handleKey(QChar key);
    void drawLine();
    void printTransition(const PhaseTransition &transition);
    [[nodiscard]] QString statusLine() const;
    [[nodiscard]] QString phaseText(const TimerStatus &status) const;

    AppDependencies &m_dependencies;
    const CommandTable &m_commands;
    const StatusSource &m_status;
    Terminal &m_terminal;
    ProcessSignals &m_processSignals;
    QString m_notice;
    /// Once set it stays: in the background only nothing is drawn.
    bool m_isInteractive = false;
    OncePerTurn m_drawing;
    QMetaObject::Connection m_printing;
    Cancellable m_keys;
    Cancellable m_terminalObserver;
    /// Active only while the process is in the background of its terminal.
    Cancellable m_foregroundCheck;
};

}
