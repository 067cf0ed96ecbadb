#pragma once

#include "Control/CommandTable.h"
#include "Persistence/StoreCopy.h"
#include "Platform/Ports/WallClock.h"
#include "Statistics/HistoryEditor.h"
#include "Statistics/HistoryImporter.h"

#include <QtCore/QDateTime>

namespace tomcatto {

/// A focus phase that was forgotten, as the words of a command give it.
struct ForgottenPhase
{
    QDate day;
    QTime time;
    qint64 minutes = 0;
};

/// Reads the words of "history add": a local date and time such as 2026-11-21T09:30, and minutes within the editor's
/// bounds. The error is what to tell the user.
[[nodiscard]] std::expected<ForgottenPhase, QString> forgottenPhase(const QString &start, const QString &minutes);

/// What the commands on the history work on. All outlive the table.
struct HistoryCommandParts
{
    HistoryEditor &editor;
    HistoryImporter &importer;
    const WallClock &wallClock;
    CoreDataStack &stack;
};

/// The name that an earlier store is kept by, with the local date and time.
[[nodiscard]] QString keptStoreName(const WallClock &wallClock);
/// What to tell of a restoration: where the earlier store is kept, or why it failed.
[[nodiscard]] ControlReply replyTo(const StoreCopyResult<QString> &kept);

/// Adds the "history" command, by which phases are added and removed, exported files imported and a copy, which was
/// prepared for it, restored. Where the one who asks names a "zone", times are those of that time zone. An addition
/// with the "id" that the phase is to have is done once, however often it is asked for.
void addHistoryCommands(CommandTable &table, const HistoryCommandParts &parts);

}
