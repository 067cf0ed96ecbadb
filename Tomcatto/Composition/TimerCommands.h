#pragma once

#include "Control/CommandTable.h"
#include "Control/StatusSource.h"

namespace tomcatto {

/// Starts a phase, pauses it or resumes it, whichever applies. @return whether anything changed
bool toggleTimer(PomodoroStateMachine &machine);

/// Adds the commands that every front end of the application offers: the timer's operations and "status". All
/// references outlive the table.
void addTimerCommands(CommandTable &table, PomodoroStateMachine &machine, const StatusSource &status);

}
