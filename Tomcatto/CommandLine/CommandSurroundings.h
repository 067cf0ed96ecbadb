#pragma once

#include "Platform/Ports/Bookmarks.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/InstanceLock.h"
#include "Platform/Ports/LocalSockets.h"
#include "Platform/Ports/LoginItem.h"
#include "Platform/Ports/StillFrame.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Ports/WallClock.h"

#include <functional>
#include <QtCore/QStringList>

namespace tomcatto {

/// What became of a line on standard output.
enum class PrintOutcome {
    printed,
    /// Its reader is gone, which is not a fault.
    nobodyReads,
    failed,
};

/// What commands need of their surroundings.
struct CommandSurroundings
{
    LocalSockets &localSockets;
    /// Where the application may listen now, the likeliest place first.
    std::function<QStringList()> controlSockets;
    /// The user's application-support folder; empty if there is none.
    std::optional<QString> applicationSupportDirectory;
    InstanceLock &instanceLock;
    WallClock &wallClock;
    IdentifierSource &identifiers;
    const Bookmarks &bookmarks;
    const StillFrame &stillFrame;
    LoginItem &loginItem;
    /// Opens the user defaults, for reading only or for a change.
    std::function<std::unique_ptr<UserDefaults>(bool isReadOnly)> openDefaults;
    /// Write a line to standard output and standard error.
    std::function<PrintOutcome(const QString &line)> print;
    std::function<void(const QString &line)> printError;
};

}
