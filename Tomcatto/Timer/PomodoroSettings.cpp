#include "Timer/PomodoroSettings.h"

#include "Timer/SettingsCatalog.h"

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
    const auto legacy = m_store.value(keyText(Key::autoStartNextCycle));
    const bool *const legacyStart = legacy ? std::get_if<bool>(&*legacy) : nullptr;
    for (const SettingDescriptor &setting : settingDescriptors()) {
        const bool isStart = setting.key == Key::autoStartBreaks || setting.key == Key::autoStartFocus;
        const qint64 fallback = isStart && legacyStart ? *legacyStart : setting.fallback;
        m_values.at(index(setting.key)) = setting.read(m_store.value(keyText(setting.key))).value_or(fallback);
    }
    // The old ring drew no digits, so its users keep an icon, while a fresh store shows the countdown.
    if (m_store.value(keyText(Key::menuBarStyle)) == DefaultsValue(QStringLiteral("ring")))
        setMenuBarStyle(MenuBarStyle::iconOnly);
    m_store.remove(keyText(Key::menuBarPhaseColor));
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

void PomodoroSettings::setValue(Key key, qint64 value)
{
    m_store.setValue(keyText(key), settingDescriptors().at(index(key)).stored(value));
    if (std::exchange(m_values.at(index(key)), value) != value)
        Q_EMIT changed(key);
}

qint64 PomodoroSettings::durationSeconds(PomodoroPhase phase) const noexcept
{
    switch (phase) {
    case PomodoroPhase::idle:
        return 0;
    case PomodoroPhase::working:
        return workDurationSeconds();
    case PomodoroPhase::shortBreak:
        return shortBreakDurationSeconds();
    case PomodoroPhase::longBreak:
        return longBreakDurationSeconds();
    }
    return 0;
}

PomodoroPreset PomodoroSettings::preset() const noexcept
{
    const PresetDurations stored{workDurationSeconds(), shortBreakDurationSeconds(), longBreakDurationSeconds()};
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
