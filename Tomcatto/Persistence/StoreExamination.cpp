#include "Persistence/StoreExamination.h"

#include "Persistence/StoreSchema.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

StoreResult<void> beImpatient(StoreConnection &connection)
{
    return connection.fetch("PRAGMA busy_timeout = 1000", {}, [](const StoreRow &) {});
}

StoreResult<qint64> readThrough(const QString &path)
{
    StoreConnection connection(path, StoreConnection::Access::readOnly);
    StoreResult<void> checked = beImpatient(connection);
    if (checked)
        checked = StoreSchema(connection).check();
    QString answer;
    if (checked)
        checked = connection.fetch("PRAGMA quick_check(1)", {}, [&](const StoreRow &row) { answer = row.text(0); });
    if (checked && answer != QLatin1String("ok"))
        checked = std::unexpected(StoreError{StoreFailure::damaged, 0, path, answer.simplified()});
    qint64 phases = 0;
    if (checked)
        checked = connection.fetch("SELECT count(*) FROM PomodoroSessionRecord", {},
                                   [&](const StoreRow &row) { phases = row.integer<qint64>(0); });
    return checked ? StoreResult<qint64>(phases) : std::unexpected(checked.error());
}

/// Takes the writers' lock and lets go of it.
StoreResult<void> tryToLock(const QString &path)
{
    StoreConnection connection(path, StoreConnection::Access::existingOnly);
    const auto patience = beImpatient(connection);
    return patience ? connection.transaction([] { return StoreResult<void>(); }) : patience;
}

}

StoreResult<qint64> examineStore(const QString &path)
{
    if (const QFileInfo file(path); !file.isWritable() || !QFileInfo(file.path()).isWritable())
        return std::unexpected(
            StoreError{StoreFailure::notWritable, 0, path, QStringLiteral("the file or its folder is not writable")});
    // Where there is no log, nobody has the store open, and a writer's connection would make one.
    const auto isInUse = [&path] { return QFileInfo::exists(path + QStringLiteral("-wal")); };
    const bool wasInUse = isInUse();
    auto phases = readThrough(path);
    // Without its log it is read as a file that nobody writes; somebody may just have begun to.
    if (!phases && !wasInUse && isInUse())
        phases = readThrough(path);
    if (const auto locked = phases && isInUse() ? tryToLock(path) : StoreResult<void>(); !locked)
        return std::unexpected(locked.error());
    return phases;
}

}
