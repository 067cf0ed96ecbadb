#pragma once

#include "Localization/LocalizedStrings.h"
#include "Timer/PomodoroSettings.h"
#include "Timer/PomodoroStateMachine.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The timer page: presets, the three durations, rounds, goal and the automatic switches. Controls count whole minutes;
/// a duration that the settings hold in seconds stays as it is until its control is moved. Main thread only.
class TimerPageViewModel final : public QObject
{
    Q_OBJECT
    /// The preset tiles: id, title, help, durations (texts of whole minutes; none for custom), name.
    Q_PROPERTY(QVariantList presets READ presets NOTIFY changed FINAL)
    /// The id of the preset that the durations match; "custom" where none does.
    Q_PROPERTY(QString preset READ preset NOTIFY changed FINAL)
    /// Rows of the durations: id, phase (a colour's name), title, help, minutes (1 to 180), text.
    Q_PROPERTY(QVariantList durations READ durations NOTIFY changed FINAL)
    /// One set in its order, as phase and seconds.
    Q_PROPERTY(QVariantList set READ set NOTIFY changed FINAL)
    Q_PROPERTY(QString setText READ setText NOTIFY changed FINAL)
    Q_PROPERTY(int rounds READ rounds NOTIFY changed FINAL)
    Q_PROPERTY(int goal READ goal NOTIFY changed FINAL)
    Q_PROPERTY(QString goalHelp READ goalHelp NOTIFY changed FINAL)
    Q_PROPERTY(bool autoStartBreaks READ autoStartBreaks NOTIFY changed FINAL)
    Q_PROPERTY(bool autoStartFocus READ autoStartFocus NOTIFY changed FINAL)
    Q_PROPERTY(bool overflow READ overflow NOTIFY changed FINAL)
    /// Whether a phase is under way, which changed durations do not touch.
    Q_PROPERTY(bool isPhaseActive READ isPhaseActive NOTIFY changed FINAL)

public:
    TimerPageViewModel(PomodoroSettings &settings, const PomodoroStateMachine &stateMachine,
                       const LocalizedStrings &strings, QObject *parent = nullptr);

    static constexpr int longestMinutes = 180;
    static constexpr int mostRounds = 12;
    static constexpr int highestGoal = 24;

    [[nodiscard]] QVariantList presets() const;
    [[nodiscard]] QString preset() const;
    [[nodiscard]] QVariantList durations() const;
    [[nodiscard]] QVariantList set() const;
    [[nodiscard]] QString setText() const;
    [[nodiscard]] int rounds() const;
    [[nodiscard]] int goal() const;
    [[nodiscard]] QString goalHelp() const;
    [[nodiscard]] bool autoStartBreaks() const { return m_settings.autoStartBreaks(); }
    [[nodiscard]] bool autoStartFocus() const { return m_settings.autoStartFocus(); }
    [[nodiscard]] bool overflow() const { return m_settings.overflowEnabled(); }
    [[nodiscard]] bool isPhaseActive() const;

    /// Applies a preset by its id. "custom" brings back the last durations that matched no preset, in this run.
    Q_INVOKABLE void choosePreset(const QString &id);
    /// Sets the duration of a row by its id, in minutes; values outside 1 to 180 are taken to the bound.
    Q_INVOKABLE void setMinutes(const QString &id, int minutes);
    /// Rounds from 1 to 12.
    Q_INVOKABLE void setRounds(int rounds);
    /// The daily goal, from 1 to 24.
    Q_INVOKABLE void setGoal(int goal);
    Q_INVOKABLE void setAutoStartBreaks(bool isOn);
    Q_INVOKABLE void setAutoStartFocus(bool isOn);
    Q_INVOKABLE void setOverflow(bool isOn);

Q_SIGNALS:
    void changed();
    /// A preset was chosen that there is not yet: a mix of one's own, which is made with the controls.
    void controlsWanted();

private:
    void rememberCustom();
    [[nodiscard]] PresetDurations lengths() const;
    [[nodiscard]] QVariantMap presetTile(NamedPreset preset) const;
    [[nodiscard]] QVariantMap durationRow(PomodoroPhase phase) const;

    PomodoroSettings &m_settings;
    const PomodoroStateMachine &m_stateMachine;
    const LocalizedStrings &m_strings;
    std::optional<PresetDurations> m_lastCustom;
    bool m_isApplying = false;
};

}
