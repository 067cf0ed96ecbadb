#pragma once

#include "Localization/SelectedLanguage.h"
#include "Platform/Ports/UserDefaults.h"
#include "Timer/NamedPreset.h"
#include "Timer/PomodoroPhase.h"
#include "Timer/SettingsEnumerations.h"

#include <QtCore/QObject>

namespace tomcatto {

/// The application's settings: reads every value once at creation, writes each back the moment it changes and announces
/// the change before the setter returns. Values are not clamped here; the controls limit what can be entered. Main
/// thread only.
class PomodoroSettings final : public QObject
{
    Q_OBJECT

public:
    /// The keys in user defaults. The last two belong to older versions and are only migrated.
    enum class Key {
        workDurationSeconds,
        shortBreakDurationSeconds,
        longBreakDurationSeconds,
        cyclesBeforeLongBreak,
        autoStartBreaks,
        autoStartFocus,
        overflowEnabled,
        dailyGoalPomodoros,
        menuBarStyle,
        soundEnabled,
        notificationsEnabled,
        launchAtLogin,
        themePreference,
        videoSource,
        selectedLanguage,
        hasCompletedOnboarding,
        autoStartNextCycle,
        menuBarPhaseColor,
    };
    Q_ENUM(Key)

    /// The text of a key in user defaults.
    [[nodiscard]] static QString keyText(Key key);

    /// Reads all values; what is missing or of a wrong type gives the default. Migrates what older versions stored.
    explicit PomodoroSettings(UserDefaults &store, QObject *parent = nullptr);

    /// Lengths of the phases, in seconds.
    [[nodiscard]] qint64 workDurationSeconds() const noexcept { return m_workDurationSeconds; }
    [[nodiscard]] qint64 shortBreakDurationSeconds() const noexcept { return m_shortBreakDurationSeconds; }
    [[nodiscard]] qint64 longBreakDurationSeconds() const noexcept { return m_longBreakDurationSeconds; }
    /// Work phases before a long break. 0 is fatal when a work phase is left.
    [[nodiscard]] qint64 cyclesBeforeLongBreak() const noexcept { return m_cyclesBeforeLongBreak; }
    [[nodiscard]] bool autoStartBreaks() const noexcept { return m_autoStartBreaks; }
    [[nodiscard]] bool autoStartFocus() const noexcept { return m_autoStartFocus; }
    [[nodiscard]] bool overflowEnabled() const noexcept { return m_overflowEnabled; }
    [[nodiscard]] qint64 dailyGoalPomodoros() const noexcept { return m_dailyGoalPomodoros; }
    [[nodiscard]] MenuBarStyle menuBarStyle() const noexcept { return m_menuBarStyle; }
    [[nodiscard]] bool soundEnabled() const noexcept { return m_soundEnabled; }
    [[nodiscard]] bool notificationsEnabled() const noexcept { return m_notificationsEnabled; }
    [[nodiscard]] bool launchAtLogin() const noexcept { return m_launchAtLogin; }
    [[nodiscard]] ThemePreference themePreference() const noexcept { return m_themePreference; }
    [[nodiscard]] VideoSource videoSource() const noexcept { return m_videoSource; }
    [[nodiscard]] SelectedLanguage selectedLanguage() const noexcept { return m_selectedLanguage; }
    [[nodiscard]] bool hasCompletedOnboarding() const noexcept { return m_hasCompletedOnboarding; }

    void setWorkDurationSeconds(qint64 seconds);
    void setShortBreakDurationSeconds(qint64 seconds);
    void setLongBreakDurationSeconds(qint64 seconds);
    void setCyclesBeforeLongBreak(qint64 cycles);
    void setAutoStartBreaks(bool isOn);
    void setAutoStartFocus(bool isOn);
    void setOverflowEnabled(bool isOn);
    void setDailyGoalPomodoros(qint64 goal);
    void setMenuBarStyle(MenuBarStyle style);
    void setSoundEnabled(bool isOn);
    void setNotificationsEnabled(bool isOn);
    void setLaunchAtLogin(bool isOn);
    void setThemePreference(ThemePreference preference);
    void setVideoSource(VideoSource source);
    void setSelectedLanguage(SelectedLanguage language);
    void setHasCompletedOnboarding(bool isCompleted);

    /// The configured length of a phase in seconds; 0 for `idle`.
    [[nodiscard]] qint64 durationSeconds(PomodoroPhase phase) const noexcept;
    /// The preset whose three durations are exactly the stored ones.
    [[nodiscard]] PomodoroPreset preset() const noexcept;
    /// Sets the three durations of a preset: work, short break, long break.
    void apply(NamedPreset preset);

Q_SIGNALS:
    /// A value was set to something else.
    void changed(tomcatto::PomodoroSettings::Key key);

private:
    void load();
    void migrateAutomaticStarts(bool legacyWasBoolean);
    void loadMenuBarStyle();
    [[nodiscard]] qint64 readInteger(Key key, qint64 fallback) const;
    [[nodiscard]] bool readBoolean(Key key, bool fallback) const;
    [[nodiscard]] std::optional<QString> readText(Key key) const;
    template<typename Value>
    void assign(Value &field, Value value, Key key, const DefaultsValue &stored);

    UserDefaults &m_store;
    qint64 m_workDurationSeconds = 1500;
    qint64 m_shortBreakDurationSeconds = 300;
    qint64 m_longBreakDurationSeconds = 900;
    qint64 m_cyclesBeforeLongBreak = 4;
    bool m_autoStartBreaks = true;
    bool m_autoStartFocus = true;
    bool m_overflowEnabled = false;
    qint64 m_dailyGoalPomodoros = 8;
    MenuBarStyle m_menuBarStyle = MenuBarStyle::countdown;
    bool m_soundEnabled = true;
    bool m_notificationsEnabled = true;
    bool m_launchAtLogin = false;
    ThemePreference m_themePreference = ThemePreference::system;
    VideoSource m_videoSource = VideoSource::bundled;
    SelectedLanguage m_selectedLanguage = SelectedLanguage::system;
    bool m_hasCompletedOnboarding = false;
};

}
