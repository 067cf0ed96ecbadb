#pragma once

#include "Foundation/EnumTexts.h"

namespace tomcatto {

/// What a shortcut does to the timer.
enum class ShortcutAction {
    /// Starts, pauses or resumes.
    toggleTimer,
    skip,
    extend,
};
template<>
inline constexpr std::array rawValues<ShortcutAction>{"toggleTimer", "skip", "extend"};

inline constexpr std::array allShortcutActions{ShortcutAction::toggleTimer, ShortcutAction::skip,
                                               ShortcutAction::extend};

/// The action that is stored by that text; nothing for any other text.
[[nodiscard]] inline std::optional<ShortcutAction> shortcutActionFromRawValue(QStringView text)
{
    return fromRawValue<ShortcutAction>(text);
}
/// The number of its hot key, from 1.
[[nodiscard]] quint32 hotKeyId(ShortcutAction action);
[[nodiscard]] std::optional<ShortcutAction> shortcutActionFromHotKeyId(quint32 id);
/// The key of its name for people.
[[nodiscard]] QString labelKey(ShortcutAction action);

}
