#include "Persistence/Repositories/SessionQueries.h"
#include "Persistence/StoreSchema.h"
#include "StoreFolder.h"

#include <array>

using namespace tomcatto;

class StoreSchemaTests : public StoreFolder
{
protected:
    StoreResult<void> prepare(std::span<const SchemaMigration> migrations)
    {
        executeRaw("");
        StoreConnection connection(storePath(), StoreConnection::Access::existingOnly);
        return StoreSchema(connection, migrations).prepare();
    }
};

TEST_F(StoreSchemaTests, migratesAStoreInWholeSteps)
{
    const SchemaMigration first = schemaMigrations().front();
    ASSERT_TRUE(prepare(std::array{first}));
    executeRaw("INSERT INTO PomodoroSessionRecord (phase) VALUES ('work')");

    const std::array broken{
        first, SchemaMigration{2, "ALTER TABLE UserVideo ADD COLUMN note TEXT; INSERT INTO missing VALUES (1)"}};
    EXPECT_FALSE(prepare(broken));
    EXPECT_EQ(readRaw("SELECT user_version || (SELECT count(*) FROM pragma_table_info('UserVideo') WHERE name = 'note')"
                      " FROM pragma_user_version"),
              "10");

    const std::array whole{first, SchemaMigration{2, "ALTER TABLE UserVideo ADD COLUMN note TEXT"}};
    EXPECT_TRUE(prepare(whole));
    EXPECT_TRUE(prepare(whole));
    EXPECT_EQ(readRaw("SELECT user_version || (SELECT count(note IS NULL) FROM UserVideo)"
                      " || (SELECT group_concat(phase) FROM PomodoroSessionRecord) FROM pragma_user_version"),
              "20work");
    EXPECT_EQ(prepare(std::array{first}).error().failure, StoreFailure::newerVersion);

    // A store restored from a dump has lost its numbers; it is taken as it is.
    ASSERT_TRUE(QFile::remove(storePath()) && prepare(schemaMigrations()));
    executeRaw("INSERT INTO UserVideo (id) VALUES ('A'); PRAGMA user_version = 0; PRAGMA application_id = 0");
    EXPECT_TRUE(prepare(schemaMigrations()));
    EXPECT_EQ(readRaw("SELECT id || user_version FROM UserVideo, pragma_user_version"), "A1");
}

TEST_F(StoreSchemaTests, everyQueryUsesItsIndexAndSortsNothing)
{
    ASSERT_TRUE(prepare(schemaMigrations()));
    using Case = std::pair<const char *, const char *>;
    const std::array cases{
        Case{sessionQueries::inInterval, "USING INDEX PomodoroSessionRecord_startedAt (startedAt>? AND startedAt<?)"},
        Case{sessionQueries::inIntervalOfPhase, "USING INDEX PomodoroSessionRecord_phase (phase=? AND startedAt>?"},
        Case{sessionQueries::completedWorkStamps, "USING COVERING INDEX PomodoroSessionRecord_completed"},
        Case{sessionQueries::completedWorkCount, "USING COVERING INDEX PomodoroSessionRecord_completed"},
        Case{sessionQueries::completedWorkSince,
             "PomodoroSessionRecord_completed (phase=? AND wasCompleted=? AND start"},
        Case{sessionQueries::earliestStart, "USING COVERING INDEX PomodoroSessionRecord_startedAt"},
        Case{sessionQueries::addedAfterRow, "USING INTEGER PRIMARY KEY (rowid>?)"},
        Case{sessionQueries::overlapping, "USING INDEX PomodoroSessionRecord_startedAt (startedAt>? AND startedAt<?)"},
        Case{sessionQueries::countEqual, "USING INDEX PomodoroSessionRecord_startedAt (startedAt>? AND startedAt<?)"},
        Case{sessionQueries::prune, "USING INDEX PomodoroSessionRecord_startedAt (startedAt<?)"},
    };
    SQLite::Database database = openRaw();
    for (const auto &[sql, expected] : cases) {
        std::string plan;
        SQLite::Statement steps(database, std::string("EXPLAIN QUERY PLAN ") + sql);
        while (steps.executeStep())
            plan += steps.getColumn(3).getString() + '\n';
        EXPECT_NE(plan.find(expected), std::string::npos) << sql << '\n' << plan;
        EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << plan;
    }
}
