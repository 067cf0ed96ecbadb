#pragma once

#include "Persistence/StoreConnection.h"

#include <span>

namespace tomcatto {

/// One numbered step from the schema before it to the schema `version`, applied in a transaction of its own.
struct SchemaMigration
{
    int version;
    const char *sql;
};

/// All migrations from the empty file on, in order. One that was released is never changed; new ones follow at the end.
[[nodiscard]] std::span<const SchemaMigration> schemaMigrations();

/// Brings a store's file to the schema that this program knows. The version is SQLite's user version; 0 is a file
/// without a schema.
class StoreSchema final
{
public:
    /// @param migrations numbered from 1, without gaps; they outlive the object
    explicit StoreSchema(StoreConnection &connection, std::span<const SchemaMigration> migrations = schemaMigrations());

    /// Checks that the file is ours and no newer than this program, turns on the write-ahead log, and applies what is
    /// missing. Several processes may do this at once. A file that is refused is left as it is.
    [[nodiscard]] StoreResult<void> prepare();
    /// Checks that the file is ours, no newer than this program, and has its tables; changes nothing.
    [[nodiscard]] StoreResult<void> check();
    /// Whether the file holds phases of ours, of whatever version; changes nothing.
    [[nodiscard]] bool isStore();

private:
    [[nodiscard]] int knownVersion() const;
    [[nodiscard]] StoreResult<qint64> number(const char *sql);
    [[nodiscard]] StoreResult<qint64> acceptedVersion();
    [[nodiscard]] StoreResult<void> useWriteAheadLog();
    [[nodiscard]] StoreResult<void> apply(const SchemaMigration &migration);
    [[nodiscard]] StoreResult<void> checkTables();
    [[nodiscard]] StoreError refusal(StoreFailure failure, const QString &detail) const;

    StoreConnection &m_connection;
    std::span<const SchemaMigration> m_migrations;
};

}
