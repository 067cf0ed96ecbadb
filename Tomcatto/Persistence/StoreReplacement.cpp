#include "Persistence/StoreReplacement.h"

#include "Persistence/StoreSchema.h"

#include <filesystem>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryFile>

namespace tomcatto::storeReplacement {

namespace {

const QString logSuffix = QStringLiteral("-wal");
const QString sharedSuffix = QStringLiteral("-shm");

using tomcatto::refused;

/// Without the advice, which is for a store in its place.
std::unexpected<Refusal> refused(const StoreError &error, const QString &file)
{
    return refused(file, error.detail);
}

std::filesystem::path pathOf(const QString &file)
{
    return file.toStdU16String();
}

/// The file that the store's path leads to.
QString fileOf(const QString &storePath)
{
    const QFileInfo store(storePath);
    return store.exists() ? store.canonicalFilePath() : storePath;
}

StoreCopyResult<void> checkSource(const QString &copy, const QString &storePath)
{
    if (isSameFile(copy, storePath))
        return std::unexpected(
            Refusal{Refusal::Kind::usage, copy + QStringLiteral(" is the history itself; name a copy of it")});
    const QFileInfo source(copy);
    if (!source.exists())
        return refused(copy, QStringLiteral("there is no such file"));
    if (source.isDir())
        return refused(copy, QStringLiteral("it is a folder"));
    if (!source.isReadable())
        return refused(copy, QStringLiteral("it cannot be read"));
    return {};
}

StoreResult<void> checkWhole(StoreConnection &connection)
{
    QString answer;
    const auto asked =
        connection.fetch("PRAGMA integrity_check(1)", {}, [&answer](const StoreRow &row) { answer = row.text(0); });
    if (!asked)
        return asked;
    if (answer != QStringLiteral("ok"))
        return std::unexpected(StoreError{StoreFailure::damaged, 0, connection.path(), answer.simplified()});
    if (!StoreSchema(connection).isStore())
        return std::unexpected(StoreError{StoreFailure::notAStore, 0, connection.path(),
                                          QStringLiteral("it is not a copy of the history")});
    return {};
}

/// Takes the store's log into its file and keeps everybody else out for as long as the connection is open.
StoreResult<void> closeLog(StoreConnection &store)
{
    StoreResult<void> done;
    // Somebody who has the store open does not let go of it soon.
    for (const char *pragma :
         {"PRAGMA busy_timeout = 250", "PRAGMA locking_mode = EXCLUSIVE", "PRAGMA journal_mode = DELETE"}) {
        if (done)
            done = store.fetch(pragma, {}, [](const StoreRow &) {});
    }
    return done;
}

/// A further name for a file that has one. What is not there needs none.
std::error_code keep(const QString &file, const QString &name)
{
    std::error_code error;
    if (QFileInfo::exists(file))
        std::filesystem::create_hard_link(pathOf(file), pathOf(name), error);
    return error;
}

/// A log that stayed would be taken for the new store's.
void keepLog(const QString &store, const QString &kept, std::error_code &error)
{
    error = keep(store + logSuffix, kept + logSuffix);
    for (const QString &suffix : {logSuffix, sharedSuffix}) {
        if (!error)
            std::filesystem::remove(pathOf(store + suffix), error);
    }
}

QString freeName(const QString &folder, const QString &name)
{
    QString path = QStringLiteral("%1/%2.sqlite").arg(folder, name);
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = QStringLiteral("%1/%2 %3.sqlite").arg(folder, name).arg(number);
    return path;
}

StoreCopyResult<void> exchange(const QString &prepared, const QString &store, const QString &kept, bool isDamaged)
{
    std::error_code error = keep(store, kept);
    if (error)
        return refused(kept, QStringLiteral("the earlier history cannot be kept: ") +
                                 QString::fromStdString(error.message()));
    if (isDamaged)
        keepLog(store, kept, error);
    if (!error)
        std::filesystem::rename(pathOf(prepared), pathOf(store), error);
    if (!error)
        return {};
    QFile::remove(kept);
    return refused(store, QString::fromStdString(error.message()));
}

}

StoreCopyResult<QString> prepare(const QString &copy, const QString &storePath)
{
    if (const auto checked = checkSource(copy, storePath); !checked)
        return std::unexpected(checked.error());
    const QString store = fileOf(storePath);
    QTemporaryFile part(store + QStringLiteral(".XXXXXX"));
    if (!QDir().mkpath(QFileInfo(store).path()) || !part.open())
        return refused(store, part.errorString());
    StoreConnection source(copy, StoreConnection::Access::readOnly);
    if (const auto copied = source.copyInto(part.fileName()); !copied)
        return refused(copied.error(), copied.error().failure == StoreFailure::diskFull ? store : copy);
    StoreConnection made(part.fileName(), StoreConnection::Access::existingOnly);
    if (const auto whole = checkWhole(made); !whole)
        return refused(whole.error(), copy);
    if (const auto prepared = StoreSchema(made).prepare(); !prepared)
        return refused(prepared.error(), copy);
    if (QFileInfo::exists(store))
        part.setPermissions(QFileInfo(store).permissions());
    part.setAutoRemove(false);
    return part.fileName();
}

StoreCopyResult<QString> putInPlace(const QString &prepared, const QString &storePath, const QString &keptName)
{
    StoreConnection made(prepared, StoreConnection::Access::existingOnly);
    if (const auto checked = StoreSchema(made).prepare(); !checked)
        return refused(checked.error(), prepared);
    made.close();
    const QString store = fileOf(storePath);
    if (!QFileInfo::exists(store)) {
        const auto moved = exchange(prepared, store, {}, false);
        return moved ? StoreCopyResult<QString>(QString()) : std::unexpected(moved.error());
    }
    const QString kept = freeName(QFileInfo(store).path(), keptName);
    StoreConnection earlier(store, StoreConnection::Access::existingOnly);
    const auto closed = closeLog(earlier);
    if (!closed && closed.error().failure == StoreFailure::locked)
        return std::unexpected(
            Refusal{Refusal::Kind::notApplicable,
                    store + QStringLiteral(" is open in another program. End that one and try again")});
    const bool isDamaged = !closed && (closed.error().failure == StoreFailure::damaged ||
                                       closed.error().failure == StoreFailure::notAStore);
    if (!closed && !isDamaged)
        return refused(closed.error(), store);
    const auto exchanged = exchange(prepared, store, kept, isDamaged);
    return exchanged ? StoreCopyResult<QString>(kept) : std::unexpected(exchanged.error());
}

}
