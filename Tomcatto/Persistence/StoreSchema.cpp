#include "Persistence/StoreSchema.h"

#include <array>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>

namespace tomcatto {

namespace {

// "Tomc": tells the store from other SQLite files.
constexpr qint64 storeApplicationId = 0x546f6d63;

constexpr const char *readVersion = "SELECT user_version FROM pragma_user_version";
constexpr const char *readApplicationId = "SELECT application_id FROM pragma_application_id";
// Tables of another program, unless ours are among them: a store restored from a dump has lost its two numbers.
constexpr const char *countForeignTables =
    "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND NOT EXISTS"
    " (SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'PomodoroSessionRecord')";

constexpr const char *countOwnTables =
    "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'PomodoroSessionRecord'";

// Dates are seconds since 1970 in UTC, identifiers upper-case UUID texts, flags 0 or 1. Every column may be missing.
constexpr const char *createTables = R"sql(
CREATE TABLE IF NOT EXISTS PomodoroSessionRecord (
    id TEXT,
    phase TEXT,
    startedAt REAL,
    endedAt REAL,
    plannedDurationSeconds INTEGER,
    actualDurationSeconds INTEGER,
    cycleIndex INTEGER,
    wasCompleted INTEGER,
    wasSkipped INTEGER
);
CREATE INDEX IF NOT EXISTS PomodoroSessionRecord_startedAt ON PomodoroSessionRecord (startedAt);
CREATE INDEX IF NOT EXISTS PomodoroSessionRecord_phase ON PomodoroSessionRecord (phase, startedAt);
CREATE INDEX IF NOT EXISTS PomodoroSessionRecord_completed
    ON PomodoroSessionRecord (phase, wasCompleted, startedAt, actualDurationSeconds);

CREATE TABLE IF NOT EXISTS UserVideo (
    id TEXT,
    displayName TEXT,
    bookmarkData BLOB,
    localCopyPath TEXT,
    durationSeconds REAL,
    addedAt REAL,
    lastPlayedAt REAL,
    playCount INTEGER,
    thumbnailData BLOB,
    userSelected INTEGER
);
CREATE INDEX IF NOT EXISTS UserVideo_id ON UserVideo (id);
CREATE INDEX IF NOT EXISTS UserVideo_addedAt ON UserVideo (addedAt);
CREATE INDEX IF NOT EXISTS UserVideo_userSelected ON UserVideo (userSelected, addedAt);
)sql";

constexpr std::array migrations{SchemaMigration{1, createTables}};

constexpr std::array tableProbes{
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord LIMIT 0",
    "SELECT id, displayName, bookmarkData, localCopyPath, durationSeconds, addedAt, lastPlayedAt, playCount,"
    " thumbnailData, userSelected FROM UserVideo LIMIT 0"};

constexpr int logModeWaitMilliseconds = 5'000;

}

std::span<const SchemaMigration> schemaMigrations()
{
    return migrations;
}

StoreSchema::StoreSchema(StoreConnection &connection, std::span<const SchemaMigration> known)
    : m_connection(connection)
    , m_migrations(known)
{
}

StoreResult<void> StoreSchema::prepare()
{
    const auto version = acceptedVersion();
    if (!version)
        return std::unexpected(version.error());
    // The write-ahead log changes the file, so whatever can be refused is refused before.
    const bool isCurrent = *version == knownVersion();
    if (isCurrent) {
        if (auto checked = checkTables(); !checked)
            return checked;
    }
    if (auto logged = useWriteAheadLog(); !logged)
        return logged;
    for (const SchemaMigration &migration : m_migrations) {
        if (migration.version <= *version)
            continue;
        if (auto applied = apply(migration); !applied)
            return applied;
    }
    if (!isCurrent) {
        if (auto checked = checkTables(); !checked)
            return checked;
    }
    return m_connection.checkpointOnClose();
}

StoreResult<void> StoreSchema::check()
{
    const auto version = acceptedVersion();
    if (!version)
        return std::unexpected(version.error());
    // An older one gets its missing tables with the next start.
    return *version == knownVersion() ? checkTables() : StoreResult<void>();
}

bool StoreSchema::isStore()
{
    return number(countOwnTables).value_or(0) > 0;
}

int StoreSchema::knownVersion() const
{
    return m_migrations.empty() ? 0 : m_migrations.back().version;
}

StoreResult<qint64> StoreSchema::number(const char *sql)
{
    qint64 result = 0;
    const auto fetched =
        m_connection.fetch(sql, {}, [&result](const StoreRow &row) { result = row.integer<qint64>(0); });
    if (!fetched)
        return std::unexpected(fetched.error());
    return result;
}

StoreResult<qint64> StoreSchema::acceptedVersion()
{
    const auto version = number(readVersion);
    if (!version)
        return version;
    const auto applicationId = number(readApplicationId);
    if (!applicationId)
        return applicationId;
    const auto foreignTables = number(countForeignTables);
    if (!foreignTables)
        return foreignTables;
    const bool unmarked = *applicationId == 0 && *version == 0 && *foreignTables == 0;
    if (*applicationId != storeApplicationId && !unmarked)
        return std::unexpected(
            refusal(StoreFailure::notAStore, QStringLiteral("the file is a database of another program")));
    const int known = knownVersion();
    if (*version < 0 || *version > known)
        return std::unexpected(refusal(
            StoreFailure::newerVersion,
            QStringLiteral("the store has version %1, this program knows versions up to %2").arg(*version).arg(known)));
    return version;
}

StoreResult<void> StoreSchema::useWriteAheadLog()
{
    // SQLite does not wait for other processes at each step of this change, so two first starts at once retry.
    const QDeadlineTimer deadline(logModeWaitMilliseconds);
    while (true) {
        QString mode;
        const auto changed =
            m_connection.fetch("PRAGMA journal_mode = WAL", {}, [&mode](const StoreRow &row) { mode = row.text(0); });
        if (changed && mode == QLatin1String("wal"))
            return {};
        if (changed)
            return std::unexpected(
                refusal(StoreFailure::notWritable,
                        QStringLiteral("its folder takes no write-ahead log, journal mode stays ") + mode));
        if (changed.error().failure != StoreFailure::locked || deadline.hasExpired())
            return changed;
        QThread::msleep(5);
    }
}

StoreResult<void> StoreSchema::apply(const SchemaMigration &migration)
{
    return m_connection.transaction([this, &migration]() -> StoreResult<void> {
        // Another process may have been faster while this one waited for the lock.
        const auto version = acceptedVersion();
        if (!version)
            return std::unexpected(version.error());
        if (*version >= migration.version)
            return {};
        if (auto executed = m_connection.executeScript(migration.sql); !executed)
            return executed;
        const QString numbers = QStringLiteral("PRAGMA user_version = %1; PRAGMA application_id = %2")
                                    .arg(migration.version)
                                    .arg(storeApplicationId);
        return m_connection.executeScript(numbers.toLatin1().constData());
    });
}

StoreResult<void> StoreSchema::checkTables()
{
    for (const char *probe : tableProbes) {
        if (auto checked = m_connection.fetch(probe, {}, [](const StoreRow &) {}); !checked)
            return checked;
    }
    return {};
}

StoreError StoreSchema::refusal(StoreFailure failure, const QString &detail) const
{
    return {failure, 0, m_connection.path(), detail};
}

}
