#pragma once

#include "Timer/PomodoroSettings.h"

#include <expected>
#include <QtCore/QStringList>

namespace tomcatto {

/// What one setting may be set to from the command line, in the bounds of the controls.
struct SettingDescriptor
{
    enum class Kind { integer, boolean, choice };

    PomodoroSettings::Key key;
    Kind kind = Kind::boolean;
    /// Bounds of an integer, both inclusive; durations are in seconds.
    qint64 minimum = 0;
    qint64 maximum = 0;
    /// The texts of a choice.
    QStringList choices;
};

/// Every setting, in the order they are kept.
[[nodiscard]] const std::vector<SettingDescriptor> &settingDescriptors();

/// The setting with that key text; null for any other text.
[[nodiscard]] const SettingDescriptor *findSetting(QStringView keyText);

/// The value that `text` stands for. The error names the key, the text and what is allowed.
[[nodiscard]] std::expected<DefaultsValue, QString> parseSetting(const SettingDescriptor &setting, const QString &text);

/// The setting's present value as text.
[[nodiscard]] QString settingText(const PomodoroSettings &settings, PomodoroSettings::Key key);

/// Sets a setting to a value that `parseSetting` gave for it.
void applySetting(PomodoroSettings &settings, PomodoroSettings::Key key, const DefaultsValue &value);

}
