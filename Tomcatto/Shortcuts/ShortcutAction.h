#pragma once

#include <array>
#include <optional>
#include <QtCore/QString>

namespace tomcatto {

/// What a shortcut does to the timer.
enum class ShortcutAction {
    /// Starts, pauses or resumes.
    toggleTimer,
    skip,
    extend,
};

inline constexpr std::array allShortcutActions{ShortcutAction::toggleTimer, ShortcutAction::skip,
                                               ShortcutAction::extend};

/// The text that an action is stored by.
[[nodiscard]] QString rawValue(ShortcutAction action);
[[nodiscard]] std::optional<ShortcutAction> shortcutActionFromRawValue(QStringView text);
/// The number of its hot key, from 1.
[[nodiscard]] quint32 hotKeyId(ShortcutAction action);
[[nodiscard]] std::optional<ShortcutAction> shortcutActionFromHotKeyId(quint32 id);
/// The key of its name for people.
[[nodiscard]] QString labelKey(ShortcutAction action);

}
