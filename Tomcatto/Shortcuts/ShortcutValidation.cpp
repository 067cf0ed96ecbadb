#include "Shortcuts/ShortcutValidation.h"

#include <algorithm>
#include <array>

namespace tomcatto {

namespace {

using Reserved = ShortcutValidation::Reserved;

constexpr KeyModifiers command = KeyModifier::command;
constexpr KeyModifiers control = KeyModifier::control;
constexpr KeyModifiers option = KeyModifier::option;
constexpr KeyModifiers shift = KeyModifier::shift;

constexpr std::array reservedShortcuts{
    Reserved{49, command, "spotlight"},
    Reserved{49, command | option, "finder_search"},
    Reserved{49, control | command, "character_viewer"},
    Reserved{48, command, "app_switcher"},
    Reserved{12, command, "quit"},
    Reserved{13, command, "close_window"},
    Reserved{4, command, "hide"},
    Reserved{4, option | command, "hide_others"},
    Reserved{46, command, "minimize"},
    Reserved{12, control | command, "lock_screen"},
    Reserved{3, control | command, "full_screen"},
    Reserved{20, command | shift, "screenshot"},
    Reserved{21, command | shift, "screenshot_region"},
    Reserved{23, command | shift, "screen_capture"},
    Reserved{126, control, "mission_control"},
    Reserved{125, control, "app_expose"},
    Reserved{123, control, "space_left"},
    Reserved{124, control, "space_right"},
};

// F1 to F20.
constexpr std::array<quint16, 20> functionKeys{122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                               103, 111, 105, 107, 113, 106, 64, 79,  80,  90};

}

ShortcutValidation::Result ShortcutValidation::validate(const KeyCombo &combo)
{
    const KeyModifiers mods = combo.modifierFlags;
    if (!mods.testAnyFlags(command | control))
        return {Result::Kind::invalid};
    const auto taken = std::ranges::find_if(reservedShortcuts, [&](const Reserved &each) {
        return each.keyCode == combo.keyCode && each.modifiers == mods;
    });
    if (taken != reservedShortcuts.end())
        return {Result::Kind::reserved, QString::fromLatin1(taken->name)};
    const bool isApplications = mods == command || mods == (command | shift);
    if (isApplications && std::ranges::find(functionKeys, combo.keyCode) == functionKeys.end())
        return {Result::Kind::standard};
    return {Result::Kind::ok};
}

QString ShortcutValidation::displayNameKey(const QString &reservedName)
{
    return QStringLiteral("settings.shortcuts.system.") + reservedName;
}

}
