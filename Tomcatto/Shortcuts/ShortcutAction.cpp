#include "Shortcuts/ShortcutAction.h"

namespace tomcatto {

quint32 hotKeyId(ShortcutAction action)
{
    return static_cast<quint32>(action) + 1;
}

std::optional<ShortcutAction> shortcutActionFromHotKeyId(quint32 id)
{
    if (id < 1 || id > allShortcutActions.size())
        return std::nullopt;
    return allShortcutActions.at(id - 1);
}

QString labelKey(ShortcutAction action)
{
    constexpr std::array keys{"main.general.shortcuts.toggle_timer", "main.general.shortcuts.skip",
                              "main.general.shortcuts.extend"};
    return textOf(keys, action);
}

}
