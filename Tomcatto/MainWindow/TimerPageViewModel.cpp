#include "MainWindow/TimerPageViewModel.h"

#include "Localization/DurationText.h"
#include "MainWindow/SetSegments.h"

#include <algorithm>

namespace tomcatto {

namespace {

constexpr std::array rows{PomodoroPhase::working, PomodoroPhase::shortBreak, PomodoroPhase::longBreak};
const QString customId = QStringLiteral("custom");

/// The name of a phase in texts' keys.
QString keyName(PomodoroPhase phase)
{
    switch (phase) {
    case PomodoroPhase::idle:
    case PomodoroPhase::working:
        return QStringLiteral("work");
    case PomodoroPhase::shortBreak:
        return QStringLiteral("short_break");
    case PomodoroPhase::longBreak:
        return QStringLiteral("long_break");
    }
    return {};
}

}

TimerPageViewModel::TimerPageViewModel(PomodoroSettings &settings, const PomodoroStateMachine &stateMachine,
                                       const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_stateMachine(stateMachine)
    , m_strings(strings)
{
    connect(&settings, &PomodoroSettings::changed, this, [this] {
        if (!m_isApplying)
            Q_EMIT changed();
    });
    connect(&stateMachine, &PomodoroStateMachine::currentPhaseChanged, this, &TimerPageViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &TimerPageViewModel::changed);
}

QVariantList TimerPageViewModel::presets() const
{
    QVariantList tiles;
    for (const NamedPreset preset : namedPresets)
        tiles.append(presetTile(preset));
    const QString title = m_strings.text(QStringLiteral("window.timer.preset.custom.title"));
    const QString help = m_strings.text(QStringLiteral("window.timer.preset.custom.help"));
    tiles.append(QVariantMap{{QStringLiteral("id"), customId},
                             {QStringLiteral("title"), title},
                             {QStringLiteral("help"), help},
                             {QStringLiteral("durations"), QStringList()},
                             {QStringLiteral("name"), title}});
    return tiles;
}

QVariantMap TimerPageViewModel::presetTile(NamedPreset preset) const
{
    const QString id = rawValue(preset);
    const PresetDurations lengths = tomcatto::durations(preset);
    const QString title = m_strings.text(QStringLiteral("window.timer.preset.%1.title").arg(id));
    QStringList minutes;
    for (const qint64 seconds : {lengths.work, lengths.shortBreak, lengths.longBreak})
        minutes.append(QString::number(seconds / 60));
    return {{QStringLiteral("id"), id},
            {QStringLiteral("title"), title},
            {QStringLiteral("help"), m_strings.text(QStringLiteral("window.timer.preset.%1.help").arg(id))},
            {QStringLiteral("durations"), minutes},
            {QStringLiteral("name"),
             m_strings.formatList(QStringLiteral("window.timer.preset.accessibility"), QStringList{title} + minutes)}};
}

QString TimerPageViewModel::preset() const
{
    const PomodoroPreset preset = m_settings.preset();
    return preset ? rawValue(*preset) : customId;
}

QVariantList TimerPageViewModel::durations() const
{
    QVariantList list;
    for (const PomodoroPhase phase : rows)
        list.append(durationRow(phase));
    return list;
}

QVariantMap TimerPageViewModel::durationRow(PomodoroPhase phase) const
{
    const qint64 seconds = m_settings.durationSeconds(phase);
    const QString key = QStringLiteral("window.timer.%1_duration").arg(keyName(phase));
    return {{QStringLiteral("id"), rawValue(phase)},
            {QStringLiteral("phase"), rawValue(phase)},
            {QStringLiteral("title"), m_strings.text(key + QStringLiteral(".title"))},
            {QStringLiteral("help"), m_strings.text(key + QStringLiteral(".help"))},
            {QStringLiteral("minutes"), static_cast<int>(std::clamp<qint64>(seconds / 60, 1, longestMinutes))},
            {QStringLiteral("text"), seconds >= 60 && seconds % 60 == 0
                                         ? m_strings.format(QStringLiteral("duration.minutes"), seconds / 60)
                                         : durationText(m_strings, seconds, true)}};
}

QVariantList TimerPageViewModel::set() const
{
    return setSegments(lengths(), rounds());
}

PresetDurations TimerPageViewModel::lengths() const
{
    return {m_settings.workDurationSeconds(), m_settings.shortBreakDurationSeconds(),
            m_settings.longBreakDurationSeconds()};
}

QString TimerPageViewModel::setText() const
{
    const PresetDurations each = lengths();
    const qint64 seconds = rounds() * each.work + (rounds() - 1) * each.shortBreak + each.longBreak;
    return durationText(m_strings, seconds);
}

int TimerPageViewModel::rounds() const
{
    return static_cast<int>(std::clamp<qint64>(m_settings.cyclesBeforeLongBreak(), 1, mostRounds));
}

int TimerPageViewModel::goal() const
{
    return static_cast<int>(std::clamp<qint64>(m_settings.dailyGoalPomodoros(), 1, highestGoal));
}

QString TimerPageViewModel::goalHelp() const
{
    return m_strings.plural(QStringLiteral("window.timer.goal.help"), goal(),
                            durationText(m_strings, goal() * m_settings.workDurationSeconds()));
}

bool TimerPageViewModel::isPhaseActive() const
{
    return m_stateMachine.currentPhase() != PomodoroPhase::idle;
}

void TimerPageViewModel::choosePreset(const QString &id)
{
    if (id == customId && preset() == customId)
        return controlsWanted();
    // The three settings change one by one; what lies between is nobody's choice.
    m_isApplying = true;
    const auto *const named = std::ranges::find_if(namedPresets, [&id](auto each) { return rawValue(each) == id; });
    if (named != namedPresets.end()) {
        rememberCustom();
        m_settings.apply(*named);
    } else if (id == customId && m_lastCustom) {
        m_settings.setWorkDurationSeconds(m_lastCustom->work);
        m_settings.setShortBreakDurationSeconds(m_lastCustom->shortBreak);
        m_settings.setLongBreakDurationSeconds(m_lastCustom->longBreak);
    }
    m_isApplying = false;
    Q_EMIT changed();
    if (preset() != id)
        Q_EMIT controlsWanted();
}

void TimerPageViewModel::rememberCustom()
{
    if (!m_settings.preset())
        m_lastCustom = lengths();
}

void TimerPageViewModel::setMinutes(const QString &id, int minutes)
{
    const qint64 seconds = 60LL * std::clamp(minutes, 1, longestMinutes);
    if (id == rawValue(PomodoroPhase::working))
        m_settings.setWorkDurationSeconds(seconds);
    else if (id == rawValue(PomodoroPhase::shortBreak))
        m_settings.setShortBreakDurationSeconds(seconds);
    else if (id == rawValue(PomodoroPhase::longBreak))
        m_settings.setLongBreakDurationSeconds(seconds);
}

void TimerPageViewModel::setRounds(int rounds)
{
    m_settings.setCyclesBeforeLongBreak(std::clamp(rounds, 1, mostRounds));
}

void TimerPageViewModel::setGoal(int goal)
{
    m_settings.setDailyGoalPomodoros(std::clamp(goal, 1, highestGoal));
}

void TimerPageViewModel::setAutoStartBreaks(bool isOn)
{
    m_settings.setAutoStartBreaks(isOn);
}

void TimerPageViewModel::setAutoStartFocus(bool isOn)
{
    m_settings.setAutoStartFocus(isOn);
}

void TimerPageViewModel::setOverflow(bool isOn)
{
    m_settings.setOverflowEnabled(isOn);
}

}
