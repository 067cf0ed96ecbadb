#pragma once

#include "Control/CommandTable.h"
#include "SystemIntegration/LaunchAtLoginService.h"

namespace tomcatto {

/// What the commands on the settings work on. All outlive the table.
struct SettingsCommandParts
{
    PomodoroSettings &settings;
    LaunchAtLoginService &launchAtLogin;
    /// What the settings are stored in.
    UserDefaults &defaults;
    /// What to add where a change cannot be stored.
    QString whenUnstored;
};

/// Adds "settings", which lists, gets and sets, and "preset".
void addSettingsCommands(CommandTable &table, const SettingsCommandParts &parts);

}
