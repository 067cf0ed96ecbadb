#pragma once

#include "Foundation/EnumTexts.h"

namespace tomcatto {

/// A fixed triple of durations. Not stored: it is recognised from the three stored durations.
enum class NamedPreset { classic, flow, deep };
template<>
inline constexpr std::array rawValues<NamedPreset>{"classic", "flow", "deep"};

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
    constexpr PresetDurations lengths[]{{1500, 300, 900}, {2700, 900, 1800}, {3000, 600, 1500}};
    return lengths[static_cast<std::size_t>(preset)];
}

}
