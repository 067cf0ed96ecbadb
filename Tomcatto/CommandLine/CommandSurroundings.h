#pragma once

#include "Platform/Ports/ApplicationPlatform.h"

namespace tomcatto {

/// What became of a line on standard output.
enum class PrintOutcome {
    printed,
    /// Its reader is gone, which is not a fault.
    nobodyReads,
    failed,
};

/// What commands need of their surroundings.
struct CommandSurroundings : ProgramPorts
{
    /// Write a line to standard output and standard error.
    std::function<PrintOutcome(const QString &line)> print;
    std::function<void(const QString &line)> printError;
};

}
