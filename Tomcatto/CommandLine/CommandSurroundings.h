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
    /// Writes bytes to standard output; a failure is told on standard error.
    std::function<PrintOutcome(const QByteArray &bytes)> write;
    /// Write a line to standard output and standard error.
    std::function<PrintOutcome(const QString &line)> print;
    std::function<void(const QString &line)> printError;
};

}
