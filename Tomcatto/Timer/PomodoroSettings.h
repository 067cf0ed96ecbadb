#pragma once

#include "Localization/SelectedLanguage.h"
#include "Platform/Ports/UserDefaults.h"
#include "Timer/NamedPreset.h"
#include "Timer/PomodoroPhase.h"
#include "Timer/SettingsEnumerations.h"

#include <array>
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
    [[nodiscard]] qint64 workDurationSeconds() const noexcept { return value(Key::workDurationSeconds); }
    [[nodiscard]] qint64 shortBreakDurationSeconds() const noexcept { return value(Key::shortBreakDurationSeconds); }
    [[nodiscard]] qint64 longBreakDurationSeconds() const noexcept { return value(Key::longBreakDurationSeconds); }
    /// Work phases before a long break. 0 is fatal when a work phase is left.
    [[nodiscard]] qint64 cyclesBeforeLongBreak() const noexcept { return value(Key::cyclesBeforeLongBreak); }
    [[nodiscard]] bool autoStartBreaks() const noexcept { return value(Key::autoStartBreaks) != 0; }
    [[nodiscard]] bool autoStartFocus() const noexcept { return value(Key::autoStartFocus) != 0; }
    [[nodiscard]] bool overflowEnabled() const noexcept { return value(Key::overflowEnabled) != 0; }
    [[nodiscard]] qint64 dailyGoalPomodoros() const noexcept { return value(Key::dailyGoalPomodoros); }
    [[nodiscard]] MenuBarStyle menuBarStyle() const noexcept
    {
        return static_cast<MenuBarStyle>(value(Key::menuBarStyle));
    }
    [[nodiscard]] bool soundEnabled() const noexcept { return value(Key::soundEnabled) != 0; }
    [[nodiscard]] bool notificationsEnabled() const noexcept { return value(Key::notificationsEnabled) != 0; }
    [[nodiscard]] bool launchAtLogin() const noexcept { return value(Key::launchAtLogin) != 0; }
    [[nodiscard]] ThemePreference themePreference() const noexcept
    {
        return static_cast<ThemePreference>(value(Key::themePreference));
    }
    [[nodiscard]] VideoSource videoSource() const noexcept { return static_cast<VideoSource>(value(Key::videoSource)); }
    [[nodiscard]] SelectedLanguage selectedLanguage() const noexcept
    {
        return static_cast<SelectedLanguage>(value(Key::selectedLanguage));
    }
    [[nodiscard]] bool hasCompletedOnboarding() const noexcept { return value(Key::hasCompletedOnboarding) != 0; }

    void setWorkDurationSeconds(qint64 seconds) { setValue(Key::workDurationSeconds, seconds); }
    void setShortBreakDurationSeconds(qint64 seconds) { setValue(Key::shortBreakDurationSeconds, seconds); }
    void setLongBreakDurationSeconds(qint64 seconds) { setValue(Key::longBreakDurationSeconds, seconds); }
    void setCyclesBeforeLongBreak(qint64 cycles) { setValue(Key::cyclesBeforeLongBreak, cycles); }
    void setAutoStartBreaks(bool isOn) { setValue(Key::autoStartBreaks, isOn); }
    void setAutoStartFocus(bool isOn) { setValue(Key::autoStartFocus, isOn); }
    void setOverflowEnabled(bool isOn) { setValue(Key::overflowEnabled, isOn); }
    void setDailyGoalPomodoros(qint64 goal) { setValue(Key::dailyGoalPomodoros, goal); }
    void setMenuBarStyle(MenuBarStyle style) { setValue(Key::menuBarStyle, static_cast<qint64>(style)); }
    void setSoundEnabled(bool isOn) { setValue(Key::soundEnabled, isOn); }
    void setNotificationsEnabled(bool isOn) { setValue(Key::notificationsEnabled, isOn); }
    void setLaunchAtLogin(bool isOn) { setValue(Key::launchAtLogin, isOn); }
    void setThemePreference(ThemePreference preference)
    {
        setValue(Key::themePreference, static_cast<qint64>(preference));
    }
    void setVideoSource(VideoSource source) { setValue(Key::videoSource, static_cast<qint64>(source)); }
    void setSelectedLanguage(SelectedLanguage language)
    {
        setValue(Key::selectedLanguage, static_cast<qint64>(language));
    }
    void setHasCompletedOnboarding(bool isCompleted) { setValue(Key::hasCompletedOnboarding, isCompleted); }

    /// Any value as the number that stands for it in the setting's `SettingDescriptor`.
    [[nodiscard]] qint64 value(Key key) const noexcept { return m_values[index(key)]; }
    void setValue(Key key, qint64 value);

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
    [[nodiscard]] static constexpr std::size_t index(Key key) noexcept { return static_cast<std::size_t>(key); }

    UserDefaults &m_store;
    std::array<qint64, static_cast<std::size_t>(Key::autoStartNextCycle)> m_values{};
};

}
