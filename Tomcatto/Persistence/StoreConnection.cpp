#include "Persistence/StoreConnection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <sqlite3.h>
#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

constexpr int busyTimeoutMilliseconds = 5'000;

// The cache is kept small: the store is read in long sweeps and written a row at a time. The log is cut back to 4 MiB
// after a large deletion. Full synchronisation makes a commit durable, not only consistent.
constexpr const char *connectionSettings = "PRAGMA synchronous = FULL;"
                                           "PRAGMA cache_size = -1024;"
                                           "PRAGMA journal_size_limit = 4194304;";

/// Has pages of the cache allocated one by one: 20 at a time for each connection, as is usual, would be more than a
/// hidden application ever uses. Before the first connection of the process; any thread.
void allocateSinglePages()
{
    [[maybe_unused]] static const int isSet = sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 0);
}

struct Binder
{
    SQLite::Statement &statement;
    int index;

    void operator()(std::monostate) const { statement.bind(index); }
    void operator()(qint64 value) const { statement.bind(index, static_cast<std::int64_t>(value)); }
    void operator()(double value) const { statement.bind(index, value); }
    void operator()(const QString &value) const { statement.bind(index, value.toStdString()); }
    void operator()(const QByteArray &value) const
    {
        statement.bind(index, static_cast<const void *>(value.constData()), static_cast<int>(value.size()));
    }
};

void bindAll(SQLite::Statement &statement, const std::vector<StoreValue> &values)
{
    int index = 0;
    for (const StoreValue &value : values)
        std::visit(Binder{statement, ++index}, value);
}

StoreError errorFrom(const SQLite::Exception &exception, const QString &path)
{
    const int code = exception.getExtendedErrorCode() > 0 ? exception.getExtendedErrorCode() : exception.getErrorCode();
    return StoreError::fromResultCode(code, path, QString::fromUtf8(exception.what()));
}

}

StoreConnection::StoreConnection(QString path, Access access)
    : m_path(std::move(path))
    , m_access(access)
{
}

StoreConnection::~StoreConnection() = default;

void StoreConnection::close()
{
    m_database.reset();
    m_dataVersion.reset();
}

StoreResult<void> StoreConnection::openToRead()
{
    // A copy that was taken with its log is read with it, which takes a lock file beside it.
    const bool isWhole = !QFileInfo::exists(m_path + QStringLiteral("-wal"));
    const QByteArray address = "file:" + QUrl::toPercentEncoding(m_path, "/") + (isWhole ? "?immutable=1" : "");
    try {
        m_database = std::make_unique<SQLite::Database>(address.toStdString(),
                                                        SQLite::OPEN_READONLY | SQLite::OPEN_URI | SQLITE_OPEN_NOMUTEX,
                                                        busyTimeoutMilliseconds);
    } catch (const SQLite::Exception &exception) {
        return std::unexpected(errorFrom(exception, m_path));
    }
    return {};
}

StoreResult<void> StoreConnection::open()
{
    if (m_access == Access::readOnly)
        return openToRead();
    // One thread at a time uses the connection, so SQLite need not lock it.
    const int flags = SQLite::OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                      (m_access == Access::createWhenMissing ? SQLite::OPEN_CREATE : 0);
    try {
        auto database = std::make_unique<SQLite::Database>(m_path.toStdString(), flags, busyTimeoutMilliseconds);
        if (sqlite3_db_readonly(database->getHandle(), "main") == 1)
            return std::unexpected(StoreError::fromResultCode(
                SQLITE_READONLY, m_path, QStringLiteral("the file can only be read, not written")));
        sqlite3_db_config(database->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        database->exec(connectionSettings);
        m_database = std::move(database);
    } catch (const SQLite::Exception &exception) {
        return std::unexpected(errorFrom(exception, m_path));
    }
    return {};
}

template<typename Action>
auto StoreConnection::withDatabase(Action action) -> StoreResult<decltype(action(std::declval<SQLite::Database &>()))>
{
    if (!m_database) {
        allocateSinglePages();
        if (const auto opened = open(); !opened)
            return std::unexpected(opened.error());
    }
    try {
        if constexpr (std::is_void_v<decltype(action(*m_database))>) {
            action(*m_database);
            return {};
        } else {
            return action(*m_database);
        }
    } catch (const SQLite::Exception &exception) {
        return std::unexpected(errorFrom(exception, m_path));
    }
}

StoreResult<void> StoreConnection::execute(const char *sql, const std::vector<StoreValue> &values)
{
    return withDatabase([&](SQLite::Database &database) {
        SQLite::Statement statement(database, sql);
        bindAll(statement, values);
        statement.exec();
    });
}

StoreResult<void> StoreConnection::executeScript(const char *sql)
{
    return withDatabase([&](SQLite::Database &database) { database.exec(sql); });
}

StoreResult<void> StoreConnection::fetch(const char *sql, const std::vector<StoreValue> &values,
                                         const std::function<void(const StoreRow &)> &row)
{
    return withDatabase([&](SQLite::Database &database) {
        SQLite::Statement statement(database, sql);
        bindAll(statement, values);
        const StoreRow current(statement);
        while (statement.executeStep())
            row(current);
    });
}

StoreResult<void> StoreConnection::fetchEach(const char *sql, std::size_t count, const FillValues &fill,
                                             const std::function<void(std::size_t, const StoreRow &)> &row)
{
    return withDatabase([&](SQLite::Database &database) {
        SQLite::Statement statement(database, sql);
        const StoreRow current(statement);
        std::vector<StoreValue> values;
        for (std::size_t run = 0; run < count; ++run) {
            fill(run, values);
            bindAll(statement, values);
            while (statement.executeStep())
                row(run, current);
            statement.reset();
        }
    });
}

StoreResult<void> StoreConnection::transaction(const std::function<StoreResult<void>()> &changes)
{
    if (const auto begun = execute("BEGIN IMMEDIATE"); !begun)
        return begun;
    StoreResult<void> result = changes();
    if (result)
        result = execute("COMMIT");
    // Some failures, such as a full disk, end the transaction by themselves.
    if (!result && sqlite3_get_autocommit(m_database->getHandle()) == 0)
        static_cast<void>(execute("ROLLBACK"));
    return result;
}

bool StoreConnection::noticeForeignWrites()
{
    // The number stays the same over commits of this connection.
    std::optional<qint64> version;
    const auto asked =
        fetch("PRAGMA data_version", {}, [&version](const StoreRow &row) { version = row.integer<qint64>(0); });
    const bool isSame = asked && version && version == m_dataVersion;
    m_dataVersion = version;
    return !isSame;
}

StoreResult<void> StoreConnection::copyInto(const QString &file)
{
    const auto copied = withDatabase([&file](SQLite::Database &database) -> StoreResult<void> {
        try {
            const std::string path = file.toStdString();
            {
                SQLite::Database copy(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, busyTimeoutMilliseconds);
                // Nobody needs the half of a copy.
                copy.exec("PRAGMA journal_mode = MEMORY");
                SQLite::Backup pages(copy, database);
                if (const int code = pages.executeStep(); code != SQLITE_DONE)
                    return std::unexpected(
                        StoreError::fromResultCode(code, file, QString::fromUtf8(sqlite3_errstr(code))));
            }
            // With the pages it took over that it has a log.
            SQLite::Database(path, SQLite::OPEN_READWRITE).exec("PRAGMA journal_mode = DELETE");
        } catch (const SQLite::Exception &exception) {
            return std::unexpected(errorFrom(exception, file));
        }
        return {};
    });
    return copied ? *copied : std::unexpected(copied.error());
}

StoreResult<void> StoreConnection::checkpointOnClose()
{
    return withDatabase([](SQLite::Database &database) {
        sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    });
}

}
