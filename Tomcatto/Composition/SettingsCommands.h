#pragma once

#include "Control/CommandTable.h"
#include "Manners/MannersSettings.h"
#include "SystemIntegration/LaunchAtLoginService.h"

namespace tomcatto {

/// What the commands on the settings work on. All outlive the table.
struct SettingsCommandParts
{
    PomodoroSettings &settings;
    LaunchAtLoginService &launchAtLogin;
    MannersSettings &manners;
    /// What all of them are stored in.
    UserDefaults &defaults;
    /// What to add where a change cannot be stored.
    QString whenUnstored;
};

/// Adds "settings" and "manners", which list, get and set, and "preset".
void addSettingsCommands(CommandTable &table, const SettingsCommandParts &parts);

}
