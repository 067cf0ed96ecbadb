#pragma once

#include <array>
#include <optional>
#include <QtCore/QString>

namespace tomcatto {

/// A fixed triple of durations. Not stored: it is recognised from the three stored durations.
enum class NamedPreset { classic, flow, deep };

/// The named preset that the stored durations match; none is custom.
using PomodoroPreset = std::optional<NamedPreset>;

/// The three durations of a preset, in seconds.
struct PresetDurations
{
    qint64 work = 0;
    qint64 shortBreak = 0;
    qint64 longBreak = 0;

    bool operator==(const PresetDurations &) const = default;
};

/// All presets, in the order they are offered and recognised.
inline constexpr std::array namedPresets{NamedPreset::classic, NamedPreset::flow, NamedPreset::deep};

/// The durations of a preset.
[[nodiscard]] constexpr PresetDurations durations(NamedPreset preset) noexcept
{
    switch (preset) {
    case NamedPreset::classic:
        return {1500, 300, 900};
    case NamedPreset::flow:
        return {2700, 900, 1800};
    case NamedPreset::deep:
        return {3000, 600, 1500};
    }
    return {};
}

/// The preset's name on the command line.
[[nodiscard]] inline QString rawValue(NamedPreset preset)
{
    switch (preset) {
    case NamedPreset::classic:
        return QStringLiteral("classic");
    case NamedPreset::flow:
        return QStringLiteral("flow");
    case NamedPreset::deep:
        return QStringLiteral("deep");
    }
    return {};
}

}
