#pragma once

#include "Control/CommandTable.h"
#include "Localization/LocalizedStrings.h"
#include "Shortcuts/ShortcutsService.h"

namespace tomcatto {

/// What the commands on the shortcuts work on. All outlive the table.
struct ShortcutCommandParts
{
    ShortcutsService &shortcuts;
    const LocalizedStrings &strings;
    /// What the bindings are stored in.
    UserDefaults &defaults;
    /// What the combinations are registered with; null where that is not done.
    const HotKeys *hotKeys;
    /// What to add where a change cannot be stored.
    QString whenUnstored;
};

/// Adds "shortcuts", which lists, sets and clears the combinations of the actions.
void addShortcutCommands(CommandTable &table, const ShortcutCommandParts &parts);

}
