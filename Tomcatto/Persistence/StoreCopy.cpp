#include "Persistence/StoreCopy.h"

#include "Persistence/StoreSchema.h"

#include <filesystem>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryFile>

namespace tomcatto {

namespace {

using tomcatto::refused;

std::unexpected<Refusal> refused(const StoreError &error)
{
    return std::unexpected(Refusal{Refusal::Kind::failed, error.description()});
}

std::filesystem::path pathOf(const QString &file)
{
    return file.toStdU16String();
}

/// Whether a file may be replaced by a copy: there is none, or one that was a store.
StoreCopyResult<void> checkTarget(const QString &storePath, const QString &file)
{
    for (const char *suffix : {"", "-wal", "-shm"}) {
        if (isSameFile(storePath + QLatin1String(suffix), file))
            return std::unexpected(
                Refusal{Refusal::Kind::usage, file + QStringLiteral(" is the history itself; name another file")});
    }
    const QFileInfo target(file);
    if (target.isSymLink() && !target.exists())
        return refused(file, QStringLiteral("the link leads nowhere"));
    if (target.isDir())
        return refused(file, QStringLiteral("it is a folder"));
    if (!target.exists())
        return {};
    if (!target.isFile())
        return refused(file, QStringLiteral("it is not an ordinary file"));
    StoreConnection earlier(file, StoreConnection::Access::readOnly);
    if (target.size() > 0 && !StoreSchema(earlier).isStore())
        return refused(file, QStringLiteral("it is not a copy of the history, so it is not replaced"));
    return {};
}

}

std::unexpected<Refusal> refused(const QString &file, const QString &reason)
{
    return std::unexpected(Refusal{Refusal::Kind::failed, file + QStringLiteral(": ") + reason});
}

bool isSameFile(const QString &one, const QString &other)
{
    std::error_code error;
    return std::filesystem::equivalent(pathOf(one), pathOf(other), error) && !error;
}

StoreCopyResult<void> backUpStore(const QString &storePath, const QString &file)
{
    if (const auto checked = checkTarget(storePath, file); !checked)
        return checked;
    // A link stays, and leads to the new copy.
    const QFileInfo existing(file);
    const QString target = existing.exists() ? existing.canonicalFilePath() : existing.absoluteFilePath();
    QTemporaryFile part(target + QStringLiteral(".XXXXXX"));
    if (!part.open())
        return refused(file, part.errorString());
    StoreConnection store(storePath, StoreConnection::Access::existingOnly);
    if (const auto prepared = StoreSchema(store).prepare(); !prepared)
        return refused(prepared.error());
    if (auto copied = store.copyInto(part.fileName()); !copied) {
        if (copied.error().path == part.fileName())
            copied.error().path = file;
        return refused(copied.error());
    }
    part.setPermissions(QFileInfo(storePath).permissions());
    std::error_code error;
    std::filesystem::rename(pathOf(part.fileName()), pathOf(target), error);
    return error ? StoreCopyResult<void>(refused(file, QString::fromStdString(error.message())))
                 : StoreCopyResult<void>();
}

}
