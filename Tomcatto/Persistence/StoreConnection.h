#pragma once

#include "Persistence/StoreError.h"
#include "Persistence/StoreRow.h"

#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace SQLite {
class Database;
class Statement;
}

namespace tomcatto {

/// A value for a statement's placeholder: missing, whole number, number, text or bytes.
using StoreValue = std::variant<std::monostate, qint64, double, QString, QByteArray>;

/// One connection to the store's file; SQLite's exceptions end here. It opens the file with the first use. Used by one
/// thread at a time. Each commit is on disk when it returns; a lock held by another process is waited for, 5 seconds at
/// most.
class StoreConnection final
{
public:
    /// Whether a missing file is made. One that is only read is opened without touching it, since nobody else writes
    /// it.
    enum class Access { createWhenMissing, existingOnly, readOnly };

    StoreConnection(QString path, Access access);
    ~StoreConnection();
    StoreConnection(const StoreConnection &) = delete;
    StoreConnection &operator=(const StoreConnection &) = delete;

    /// The store's file.
    [[nodiscard]] const QString &path() const noexcept { return m_path; }

    /// Runs one statement that answers with no rows; `values` fill ?1, ?2, … in order.
    [[nodiscard]] StoreResult<void> execute(const char *sql, const std::vector<StoreValue> &values = {});
    /// Runs several statements, separated by semicolons.
    [[nodiscard]] StoreResult<void> executeScript(const char *sql);
    /// Runs one query and calls `row` for each row of its answer.
    [[nodiscard]] StoreResult<void> fetch(const char *sql, const std::vector<StoreValue> &values,
                                          const std::function<void(const StoreRow &)> &row);
    using FillValues = std::function<void(std::size_t run, std::vector<StoreValue> &values)>;
    /// Runs one statement or query `count` times, each time with other values, which `fill` gives by the run's number,
    /// and calls `row` for each row of an answer; it may be empty.
    [[nodiscard]] StoreResult<void> fetchEach(const char *sql, std::size_t count, const FillValues &fill,
                                              const std::function<void(std::size_t, const StoreRow &)> &row);
    /// Runs `changes` between a begin that takes the write lock and a commit; when either fails, all is rolled back.
    [[nodiscard]] StoreResult<void> transaction(const std::function<StoreResult<void>()> &changes);
    /// Whether another connection, of this process or another, has written to the store since this was asked last. Also
    /// true the first time and where it cannot be told. Certain only within a transaction.
    [[nodiscard]] bool noticeForeignWrites();
    /// Copies everything that is committed, as of one moment, into a file that is empty or missing; others may write
    /// meanwhile. The copy is on disk when this returns, and whole without a file beside it.
    [[nodiscard]] StoreResult<void> copyInto(const QString &file);
    /// Lets go of the file until the next use.
    void close();
    /// Lets the last connection's close copy the write-ahead log into the file. Until this is called a close leaves the
    /// files as they are, so that a store that is refused is not touched.
    [[nodiscard]] StoreResult<void> checkpointOnClose();

private:
    [[nodiscard]] StoreResult<void> open();
    [[nodiscard]] StoreResult<void> openToRead();
    template<typename Action>
    [[nodiscard]] auto withDatabase(Action action) -> StoreResult<decltype(action(std::declval<SQLite::Database &>()))>;

    QString m_path;
    Access m_access;
    std::unique_ptr<SQLite::Database> m_database;
    std::optional<qint64> m_dataVersion;
};

}
