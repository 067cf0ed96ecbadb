#include "BreakOverlay/BreakOverlayModel.h"

namespace tomcatto {

BreakOverlayModel::BreakOverlayModel(const BreakOverlayServices &services, BreakVideoSource videos, bool isMuted,
                                     QObject *parent)
    : BreakContentModel(std::move(videos), isMuted || !services.settings.soundEnabled(), parent)
    , m_services(services)
{
    const PomodoroStateMachine *machine = &m_services.stateMachine;
    connect(machine, &PomodoroStateMachine::currentPhaseChanged, this, &BreakOverlayModel::refresh);
    connect(machine, &PomodoroStateMachine::currentPlannedSecondsChanged, this, &BreakOverlayModel::refresh);
    connect(machine, &PomodoroStateMachine::isPhasePendingChanged, this, &BreakOverlayModel::refresh);
    connect(&m_services.timer, &PomodoroTimer::remainingSecondsChanged, this, &BreakOverlayModel::refresh);
    connect(&m_services.settings, &PomodoroSettings::changed, this, &BreakOverlayModel::refresh);
    connect(&m_services.strings, &LocalizedStrings::changed, this, &BreakOverlayModel::refresh);
    refresh();
}

void BreakOverlayModel::start()
{
    m_services.stateMachine.takeBreak();
}

void BreakOverlayModel::extend()
{
    // A window that fades away still takes a click; the focus phase is none of its business.
    if (isBreak(m_services.stateMachine.currentPhase()))
        m_services.stateMachine.extend(extensionSeconds);
}

QString BreakOverlayModel::text(const char *part) const
{
    QString kind = QStringLiteral("short_break");
    if (m_services.stateMachine.isPhasePending())
        kind = QStringLiteral("ready");
    else if (m_services.stateMachine.currentPhase() == PomodoroPhase::longBreak)
        kind = QStringLiteral("long_break");
    return m_services.strings.text(QStringLiteral("breakoverlay.%1.%2").arg(kind, QLatin1String(part)));
}

void BreakOverlayModel::refresh()
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    // A window that fades away keeps what it showed.
    if (!isBreak(machine.currentPhase()))
        return;
    BreakContent content;
    content.phase = rawValue(machine.currentPhase());
    content.title = text("title");
    content.subtitle = text("subtitle");
    setCountdown(content, m_services.strings, m_services.timer.remainingSeconds(), machine.currentPlannedSeconds());
    content.canStart = machine.isPhasePending();
    content.canExtend = !machine.isPhasePending();
    content.soundEnabled = m_services.settings.soundEnabled();
    setContent(content);
}

}
