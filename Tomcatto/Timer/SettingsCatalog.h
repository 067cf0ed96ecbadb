#pragma once

#include "Timer/PomodoroSettings.h"

#include <expected>
#include <QtCore/QStringList>
#include <vector>

namespace tomcatto {

/// The controls for durations reach from 1 to this many minutes; the command line takes seconds as well.
inline constexpr qint64 longestDurationMinutes = 180;

/// One setting: its key, its default and what the controls and the command line may set it to. Every value is a number
/// here: 0 or 1 of a boolean, of a choice the place of its text.
struct SettingDescriptor
{
    enum class Kind { integer, boolean, choice };

    PomodoroSettings::Key key;
    Kind kind = Kind::boolean;
    qint64 fallback = 0;
    /// Bounds of an integer, both inclusive; durations are in seconds.
    qint64 minimum = 0;
    qint64 maximum = 0;
    /// The texts of a boolean or a choice.
    QStringList texts;

    /// The value as text, and as it stands in user defaults.
    [[nodiscard]] QString text(qint64 value) const;
    [[nodiscard]] DefaultsValue stored(qint64 value) const;
    /// The value that stands in user defaults, within the bounds or not; nothing if it is of another type or text.
    [[nodiscard]] std::optional<qint64> read(const std::optional<DefaultsValue> &value) const;
    /// The value that a text stands for. The error names the key, the text and what is allowed.
    [[nodiscard]] std::expected<qint64, QString> parse(const QString &text) const;
};

/// Every setting, in the order of their keys.
[[nodiscard]] const std::vector<SettingDescriptor> &settingDescriptors();

/// The setting with that key text; null for any other text.
[[nodiscard]] const SettingDescriptor *findSetting(QStringView keyText);

}
