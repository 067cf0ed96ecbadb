#include "CommandLine/TerminalFrontEnd.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

/// The command behind a key; empty for any other key.
QString commandForKey(QChar pressed)
{
    for (const auto &[character, command] :
         {std::pair(u' ', "toggle"), std::pair(u's', "skip"), std::pair(u'b', "take-break"), std::pair(u'e', "extend"),
          std::pair(u'r', "reset"), std::pair(u'q', "quit")}) {
        if (pressed.toLower() == character)
            return key(command);
    }
    return {};
}

/// The terminal colour of a phase: the pill's hues as close as sixteen colours come.
QString colour(const TimerStatus &status)
{
    constexpr std::array colours{"\x1b[2m", "\x1b[1;31m", "\x1b[1;34m", "\x1b[1;32m"};
    return status.isOverflowing ? QStringLiteral("\x1b[1;33m") : textOf(colours, status.phase);
}

}

TerminalFrontEnd::TerminalFrontEnd(AppDependencies &dependencies, const CommandTable &commands,
                                   const StatusSource &status, Terminal &terminal, ProcessSignals &processSignals,
                                   QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_commands(commands)
    , m_status(status)
    , m_terminal(terminal)
    , m_processSignals(processSignals)
    , m_drawing(dependencies.platform.runLoop, [this] { drawLine(); })
{
}

TerminalFrontEnd::~TerminalFrontEnd()
{
    if (m_isInteractive)
        m_terminal.write(QStringLiteral("\n"));
}

void TerminalFrontEnd::start()
{
    m_printing = connect(&m_dependencies.stateMachine, &PomodoroStateMachine::transitioned, this,
                         &TerminalFrontEnd::printTransition);
    if (!m_terminal.isTerminal())
        return;
    m_terminalObserver = m_processSignals.onTerminalChanged([this] { followTerminal(); });
    followTerminal();
}

void TerminalFrontEnd::startInteractive()
{
    m_isInteractive = true;
    disconnect(m_printing);
    m_terminal.write(m_dependencies.strings.text(key("terminal.keys")) + QLatin1Char('\n'));
    const auto draw = [this] { m_drawing.schedule(); };
    connect(&m_status, &StatusSource::changed, this, draw);
    connect(&m_dependencies.timer, &PomodoroTimer::remainingSecondsChanged, this, draw);
    connect(&m_dependencies.timer, &PomodoroTimer::overflowSecondsChanged, this, draw);
    connect(&m_dependencies.strings, &LocalizedStrings::changed, this, draw);
    m_keys = m_terminal.readKeys([this](QChar pressed) { handleKey(pressed); });
}

void TerminalFrontEnd::followTerminal()
{
    if (m_terminal.isInteractive()) {
        m_foregroundCheck.cancel();
        if (!m_isInteractive)
            startInteractive();
        drawLine();
    } else if (!m_foregroundCheck.isActive()) {
        // A shell tells a job that runs in the background nothing when it brings it to the foreground.
        m_foregroundCheck =
            m_dependencies.platform.runLoop.every(std::chrono::seconds(1), [this] { followTerminal(); });
    }
}

void TerminalFrontEnd::handleKey(QChar pressed)
{
    const QString command = commandForKey(pressed);
    if (command.isEmpty())
        return;
    m_commands.run(command, {}, [this](const ControlReply &reply) {
        m_notice = reply.status == ExitStatus::done ? QString() : reply.message;
        m_drawing.schedule();
    });
}

void TerminalFrontEnd::drawLine()
{
    if (!m_terminal.isInteractive())
        return;
    m_terminal.write(QStringLiteral("\r\x1b[K") + statusLine());
}

QString TerminalFrontEnd::statusLine() const
{
    const TimerStatus status = m_status.status();
    QString line =
        m_dependencies.strings.format(key("terminal.line"), status.title, phaseText(status), status.cycleIndex + 1,
                                      status.cyclesPerSet, status.todayCompleted, status.dailyGoal);
    if (!m_notice.isEmpty())
        line += QStringLiteral("  ") + m_notice;
    // A line that wraps could not be drawn over.
    line.truncate(std::max(m_terminal.columns() - 1, 0));
    if (line.startsWith(status.title))
        line.replace(0, status.title.size(), colour(status) + status.title + QStringLiteral("\x1b[0m"));
    return line;
}

QString TerminalFrontEnd::phaseText(const TimerStatus &status) const
{
    const LocalizedStrings &strings = m_dependencies.strings;
    constexpr std::array names{"terminal.phase.idle", "terminal.phase.work", "terminal.phase.short_break",
                               "terminal.phase.long_break"};
    QString text = strings.text(status.isOverflowing ? key("terminal.phase.overtime") : textOf(names, status.phase));
    if (status.isPending)
        text += QStringLiteral(", ") + strings.text(key("terminal.ready"));
    else if (status.isPaused)
        text += QStringLiteral(", ") + strings.text(key("terminal.paused"));
    return text;
}

void TerminalFrontEnd::printTransition(const PhaseTransition &transition)
{
    const Date now = m_dependencies.platform.wallClock.now();
    const QString time =
        toDateTime(now).toTimeZone(m_dependencies.platform.wallClock.calendar().timeZone).toString(key("HH:mm:ss"));
    QString line =
        QStringLiteral("%1 %2 -> %3 (%4)")
            .arg(time, rawValue(transition.previous), rawValue(transition.current), rawValue(transition.reason));
    if (transition.current != PomodoroPhase::idle) {
        line += QStringLiteral(", %1").arg(clockText(m_dependencies.stateMachine.currentPlannedSeconds()));
        if (m_dependencies.stateMachine.isPhasePending())
            line += QStringLiteral(", waiting");
    }
    m_terminal.write(line + QLatin1Char('\n'));
}

}
