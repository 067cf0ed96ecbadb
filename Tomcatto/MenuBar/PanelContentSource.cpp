#include "MenuBar/PanelContentSource.h"

#include "Foundation/EnumTexts.h"
#include "Localization/SpokenDuration.h"
#include "MenuBar/TransportControls.h"
#include "StatusPill/StatusPillSource.h"

#include <algorithm>

namespace tomcatto {
namespace {

struct PrimaryFace
{
    const char *key;
    const char *symbol;
};

// In the order of `PrimaryTransport`.
constexpr std::array primaryFaces{PrimaryFace{"menubar.transport_start", "play.fill"},
                                  PrimaryFace{"menubar.transport_start_break", "cup.and.saucer.fill"},
                                  PrimaryFace{"menubar.transport_pause", "pause.fill"},
                                  PrimaryFace{"menubar.transport_resume", "play.fill"}};

/// Someone who types sees the break come soon enough.
const char *pendingKey(std::optional<HoldReason> heldBy)
{
    if (heldBy == HoldReason::call)
        return "notifications.break_held.call";
    return heldBy == HoldReason::fullScreen ? "notifications.break_held.full_screen" : "menubar.pending.caption";
}

QString rhythmKey(PomodoroPreset preset)
{
    if (!preset)
        return QStringLiteral("menubar.rhythm.custom");
    return QStringLiteral("menubar.rhythm.") + rawValue(*preset);
}

}

PanelContentSource::PanelContentSource(const MenuBarServices &services)
    : m_services(services)
{
}

QString PanelContentSource::text(const char *key) const
{
    return m_services.strings.text(QString::fromLatin1(key));
}

qint64 PanelContentSource::seconds() const
{
    if (m_services.stateMachine.isOverflowing())
        return m_services.timer.overflowSeconds();
    return m_services.stateMachine.currentPhase() == PomodoroPhase::idle ? m_services.settings.workDurationSeconds()
                                                                         : m_services.timer.remainingSeconds();
}

PanelClock PanelContentSource::clock() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    const StatusPillSource pill(machine, m_services.timer, m_services.settings, m_services.strings);
    PanelClock clock;
    clock.text = clockText(seconds());
    if (machine.isOverflowing())
        clock.text.prepend(QLatin1Char('+'));
    clock.progress = std::clamp(pill.content().progress, 0.0, 1.0);
    QString phaseName = m_services.strings.text(phaseKey());
    if (machine.isOverflowing() && machine.isPaused())
        phaseName = m_services.strings.format(QStringLiteral("menubar.phase.paused"), phaseName);
    clock.name = m_services.strings.format(dialKey(), phaseName, spokenDuration(m_services.strings, seconds()));
    return clock;
}

PanelPhase PanelContentSource::phase() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    const TransportControls controls = transportControls(machine);
    const PrimaryFace &face = primaryFaces.at(static_cast<std::size_t>(controls.primary));
    PanelPhase phase;
    phase.theme = theme();
    phase.headline = headline();
    phase.name = m_services.strings.text(phaseKey());
    phase.caption = caption();
    phase.isPending = machine.isPhasePending();
    phase.isPaused = machine.isPaused() && !phase.isPending;
    if (phase.isPaused) {
        phase.name = m_services.strings.format(QStringLiteral("menubar.phase.paused"), phase.name);
        phase.symbol = QStringLiteral("pause.fill");
    } else if (phase.isPending && isBreak(machine.currentPhase())) {
        phase.symbol = QStringLiteral("cup.and.saucer.fill");
    }
    phase.primaryText = text(face.key);
    phase.primarySymbol = QString::fromLatin1(face.symbol);
    phase.canReset = controls.canReset;
    phase.canSkip = controls.canSkip;
    phase.wasAway = m_services.manners.awaySince().has_value();
    phase.showsTakeBreak = controls.showsTakeBreak || phase.wasAway;
    phase.showsExtend = controls.showsExtend;
    return phase;
}

PanelStrip PanelContentSource::strip() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    const LocalizedStrings &strings = m_services.strings;
    const qint64 rounds = std::max<qint64>(m_services.settings.cyclesBeforeLongBreak(), 1);
    const qint64 round = std::clamp<qint64>(machine.currentCycleIndex() + 1, 1, rounds);
    const bool inBreak = isBreak(machine.currentPhase());
    PanelStrip strip;
    strip.rounds = static_cast<int>(rounds);
    // The index moves on with the next work phase, so during a break the round it counts is over.
    strip.roundsDone = static_cast<int>(inBreak ? round : round - 1);
    strip.isRoundCurrent = !inBreak;
    strip.roundCompact = strings.format(QStringLiteral("menubar.cycle"), round, rounds);
    strip.roundLabel = strings.format(QStringLiteral("menubar.popover.cycle_count"), round, rounds);

    const qint64 done = m_services.statsAggregator.todayCount();
    const qint64 goal = m_services.settings.dailyGoalPomodoros();
    const QString figure = strings.format(QStringLiteral("menubar.goal"), done, goal);
    strip.goalCount = QString::number(done);
    if (figure.startsWith(strip.goalCount)) {
        strip.goalRest = figure.mid(strip.goalCount.size());
    } else {
        strip.goalCount = figure;
    }
    strip.goalName = strings.format(QStringLiteral("menubar.goal.accessibility_label"), done, goal);
    const qint64 streak = m_services.statsAggregator.currentStreak();
    strip.streak = strings.format(QStringLiteral("menubar.streak"), streak);
    strip.streakName = strings.format(QStringLiteral("menubar.streak.accessibility_label"), streak);
    return strip;
}

QString PanelContentSource::phaseKey() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    if (machine.isPhasePending()) {
        return isBreak(machine.currentPhase()) ? QStringLiteral("menubar.phase.ready")
                                               : QStringLiteral("menubar.phase.focus_ready");
    }
    constexpr std::array keys{"menubar.phase.work", "menubar.phase.work", "menubar.phase.short_break",
                              "menubar.phase.long_break", "menubar.phase.overtime"};
    return textOf(keys, statusPillTone(machine.currentPhase(), machine.isOverflowing()));
}

QString PanelContentSource::theme() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    return machine.isOverflowing() ? QStringLiteral("overtime") : rawValue(machine.currentPhase());
}

QString PanelContentSource::headline() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    if (const auto since = m_services.manners.awaySince())
        return timeText(*since, "menubar.header.away", "menubar.header.away_am_pm");
    if (machine.isOverflowing()) {
        // A plan below a minute still counts as one.
        const qint64 minutes = std::max<qint64>(machine.currentPlannedSeconds() / 60, 1);
        return m_services.strings.format(QStringLiteral("menubar.overtime.done"), minutes);
    }
    if (machine.currentPhase() == PomodoroPhase::idle || machine.isPaused())
        return text("app.name");
    const Seconds left(static_cast<double>(m_services.timer.remainingSeconds()));
    return timeText(m_services.wallClock.now() + left, "menubar.header.until", "menubar.header.until_am_pm");
}

QString PanelContentSource::timeText(Date date, const char *key, const char *halvedKey) const
{
    const Calendar calendar = m_services.wallClock.calendar();
    const QTime time = toDateTime(date).toTimeZone(calendar.timeZone).time();
    // Words such as the German "Uhr" go with a day of 24 hours only.
    const bool isHalved = calendar.timeFormat.contains(u'a', Qt::CaseInsensitive);
    return m_services.strings.format(QString::fromLatin1(isHalved ? halvedKey : key),
                                     m_services.strings.locale().toString(time, calendar.timeFormat));
}

QString PanelContentSource::caption() const
{
    if (m_services.stateMachine.isPhasePending())
        return text(pendingKey(m_services.manners.heldBy()));
    return m_services.stateMachine.currentPhase() == PomodoroPhase::idle
               ? m_services.strings.text(rhythmKey(m_services.settings.preset()))
               : QString();
}

QString PanelContentSource::dialKey() const
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    if (machine.currentPhase() == PomodoroPhase::idle)
        return QStringLiteral("menubar.dial.idle");
    if (machine.isPhasePending())
        return QStringLiteral("menubar.dial.ready");
    if (machine.isOverflowing())
        return QStringLiteral("menubar.dial.overtime");
    return machine.isPaused() ? QStringLiteral("menubar.dial.paused") : QStringLiteral("menubar.dial.remaining");
}

}
