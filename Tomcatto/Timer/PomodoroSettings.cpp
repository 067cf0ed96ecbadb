#include "Timer/PomodoroSettings.h"

#include <cmath>
#include <QtCore/QMetaEnum>

namespace tomcatto {

QString PomodoroSettings::keyText(Key key)
{
    return QString::fromLatin1(QMetaEnum::fromType<Key>().valueToKey(static_cast<int>(key)));
}

PomodoroSettings::PomodoroSettings(UserDefaults &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{
    load();
}

void PomodoroSettings::load()
{
    m_workDurationSeconds = readInteger(Key::workDurationSeconds, m_workDurationSeconds);
    m_shortBreakDurationSeconds = readInteger(Key::shortBreakDurationSeconds, m_shortBreakDurationSeconds);
    m_longBreakDurationSeconds = readInteger(Key::longBreakDurationSeconds, m_longBreakDurationSeconds);
    m_cyclesBeforeLongBreak = readInteger(Key::cyclesBeforeLongBreak, m_cyclesBeforeLongBreak);

    const auto legacy = m_store.value(keyText(Key::autoStartNextCycle));
    const bool *const legacyStart = legacy ? std::get_if<bool>(&*legacy) : nullptr;
    m_autoStartBreaks = readBoolean(Key::autoStartBreaks, legacyStart ? *legacyStart : true);
    m_autoStartFocus = readBoolean(Key::autoStartFocus, legacyStart ? *legacyStart : true);

    m_overflowEnabled = readBoolean(Key::overflowEnabled, m_overflowEnabled);
    m_dailyGoalPomodoros = readInteger(Key::dailyGoalPomodoros, m_dailyGoalPomodoros);
    loadMenuBarStyle();
    m_store.remove(keyText(Key::menuBarPhaseColor));
    m_soundEnabled = readBoolean(Key::soundEnabled, m_soundEnabled);
    m_notificationsEnabled = readBoolean(Key::notificationsEnabled, m_notificationsEnabled);
    m_launchAtLogin = readBoolean(Key::launchAtLogin, m_launchAtLogin);
    if (const auto text = readText(Key::themePreference))
        m_themePreference = themePreferenceFromRawValue(*text).value_or(m_themePreference);
    if (const auto text = readText(Key::videoSource))
        m_videoSource = videoSourceFromRawValue(*text).value_or(m_videoSource);
    if (const auto text = readText(Key::selectedLanguage))
        m_selectedLanguage = languageFromRawValue(*text).value_or(m_selectedLanguage);
    m_hasCompletedOnboarding = readBoolean(Key::hasCompletedOnboarding, m_hasCompletedOnboarding);
    migrateAutomaticStarts(legacyStart != nullptr);
}

void PomodoroSettings::migrateAutomaticStarts(bool legacyWasBoolean)
{
    const auto legacy = m_store.storedValue(keyText(Key::autoStartNextCycle));
    if (!legacyWasBoolean || !legacy)
        return;
    for (const Key key : {Key::autoStartBreaks, Key::autoStartFocus}) {
        // What was given for this run only must not be stored, so the stored value is resolved on its own.
        const auto stored = m_store.storedValue(keyText(key));
        const DefaultsValue resolved = stored && std::holds_alternative<bool>(*stored) ? *stored : *legacy;
        m_store.setValue(keyText(key), resolved);
    }
    m_store.remove(keyText(Key::autoStartNextCycle));
}

void PomodoroSettings::loadMenuBarStyle()
{
    const auto text = readText(Key::menuBarStyle);
    if (!text)
        return;
    // The old ring drew no digits, so its users keep an icon, while a fresh store shows the countdown.
    if (*text == QStringLiteral("ring")) {
        m_menuBarStyle = MenuBarStyle::iconOnly;
        m_store.setValue(keyText(Key::menuBarStyle), rawValue(MenuBarStyle::iconOnly));
        return;
    }
    m_menuBarStyle = menuBarStyleFromRawValue(*text).value_or(m_menuBarStyle);
}

qint64 PomodoroSettings::readInteger(Key key, qint64 fallback) const
{
    const auto value = m_store.value(keyText(key));
    if (!value)
        return fallback;
    if (const auto *integer = std::get_if<qint64>(&*value))
        return *integer;
    if (const auto *number = std::get_if<double>(&*value)) {
        // Fractions are dropped; what no integer can hold counts as absent.
        constexpr double limit = 9.2e18;
        return std::isfinite(*number) && std::abs(*number) < limit ? static_cast<qint64>(*number) : fallback;
    }
    return fallback;
}

bool PomodoroSettings::readBoolean(Key key, bool fallback) const
{
    const auto value = m_store.value(keyText(key));
    const bool *const boolean = value ? std::get_if<bool>(&*value) : nullptr;
    return boolean ? *boolean : fallback;
}

std::optional<QString> PomodoroSettings::readText(Key key) const
{
    const auto value = m_store.value(keyText(key));
    const QString *const text = value ? std::get_if<QString>(&*value) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

template<typename Value>
void PomodoroSettings::assign(Value &field, Value value, Key key, const DefaultsValue &stored)
{
    m_store.setValue(keyText(key), stored);
    if (field == value)
        return;
    field = value;
    Q_EMIT changed(key);
}

void PomodoroSettings::setWorkDurationSeconds(qint64 seconds)
{
    assign(m_workDurationSeconds, seconds, Key::workDurationSeconds, seconds);
}

void PomodoroSettings::setShortBreakDurationSeconds(qint64 seconds)
{
    assign(m_shortBreakDurationSeconds, seconds, Key::shortBreakDurationSeconds, seconds);
}

void PomodoroSettings::setLongBreakDurationSeconds(qint64 seconds)
{
    assign(m_longBreakDurationSeconds, seconds, Key::longBreakDurationSeconds, seconds);
}

void PomodoroSettings::setCyclesBeforeLongBreak(qint64 cycles)
{
    assign(m_cyclesBeforeLongBreak, cycles, Key::cyclesBeforeLongBreak, cycles);
}

void PomodoroSettings::setAutoStartBreaks(bool isOn)
{
    assign(m_autoStartBreaks, isOn, Key::autoStartBreaks, isOn);
}

void PomodoroSettings::setAutoStartFocus(bool isOn)
{
    assign(m_autoStartFocus, isOn, Key::autoStartFocus, isOn);
}

void PomodoroSettings::setOverflowEnabled(bool isOn)
{
    assign(m_overflowEnabled, isOn, Key::overflowEnabled, isOn);
}

void PomodoroSettings::setDailyGoalPomodoros(qint64 goal)
{
    assign(m_dailyGoalPomodoros, goal, Key::dailyGoalPomodoros, goal);
}

void PomodoroSettings::setMenuBarStyle(MenuBarStyle style)
{
    assign(m_menuBarStyle, style, Key::menuBarStyle, rawValue(style));
}

void PomodoroSettings::setSoundEnabled(bool isOn)
{
    assign(m_soundEnabled, isOn, Key::soundEnabled, isOn);
}

void PomodoroSettings::setNotificationsEnabled(bool isOn)
{
    assign(m_notificationsEnabled, isOn, Key::notificationsEnabled, isOn);
}

void PomodoroSettings::setLaunchAtLogin(bool isOn)
{
    assign(m_launchAtLogin, isOn, Key::launchAtLogin, isOn);
}

void PomodoroSettings::setThemePreference(ThemePreference preference)
{
    assign(m_themePreference, preference, Key::themePreference, rawValue(preference));
}

void PomodoroSettings::setVideoSource(VideoSource source)
{
    assign(m_videoSource, source, Key::videoSource, rawValue(source));
}

void PomodoroSettings::setSelectedLanguage(SelectedLanguage language)
{
    assign(m_selectedLanguage, language, Key::selectedLanguage, rawValue(language));
}

void PomodoroSettings::setHasCompletedOnboarding(bool isCompleted)
{
    assign(m_hasCompletedOnboarding, isCompleted, Key::hasCompletedOnboarding, isCompleted);
}

qint64 PomodoroSettings::durationSeconds(PomodoroPhase phase) const noexcept
{
    switch (phase) {
    case PomodoroPhase::idle:
        return 0;
    case PomodoroPhase::working:
        return m_workDurationSeconds;
    case PomodoroPhase::shortBreak:
        return m_shortBreakDurationSeconds;
    case PomodoroPhase::longBreak:
        return m_longBreakDurationSeconds;
    }
    return 0;
}

PomodoroPreset PomodoroSettings::preset() const noexcept
{
    const PresetDurations stored{m_workDurationSeconds, m_shortBreakDurationSeconds, m_longBreakDurationSeconds};
    for (const NamedPreset candidate : namedPresets) {
        if (durations(candidate) == stored)
            return candidate;
    }
    return std::nullopt;
}

void PomodoroSettings::apply(NamedPreset preset)
{
    const PresetDurations triple = durations(preset);
    setWorkDurationSeconds(triple.work);
    setShortBreakDurationSeconds(triple.shortBreak);
    setLongBreakDurationSeconds(triple.longBreak);
}

}
