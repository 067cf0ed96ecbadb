#include "Persistence/StoreError.h"

#include <sqlite3.h>

namespace tomcatto {

namespace {

StoreFailure failureOf(int extendedCode)
{
    // The low byte is the kind, the rest tells it apart further.
    switch (extendedCode & 0xff) {
    case SQLITE_NOTADB:
        return StoreFailure::notAStore;
    case SQLITE_CORRUPT:
        return StoreFailure::damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return StoreFailure::locked;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_AUTH:
        return StoreFailure::notWritable;
    case SQLITE_FULL:
        return StoreFailure::diskFull;
    default:
        return StoreFailure::other;
    }
}

QString advice(StoreFailure failure)
{
    switch (failure) {
    case StoreFailure::notAStore:
        return QStringLiteral("Move the file elsewhere and start again");
    case StoreFailure::damaged:
        return QStringLiteral("Put a backup in its place, or move the file elsewhere to begin a new history");
    case StoreFailure::locked:
        return QStringLiteral("Close the program that holds the file and start again");
    case StoreFailure::notWritable:
        return QStringLiteral("Make the file and its folder readable and writable");
    case StoreFailure::diskFull:
        return QStringLiteral("Free some space on its disk");
    case StoreFailure::newerVersion:
        return QStringLiteral("Update the application; the file was left as it is");
    case StoreFailure::other:
        return QStringLiteral("Check the disk and the file");
    }
    return {};
}

}

StoreError StoreError::fromResultCode(int extendedCode, const QString &path, const QString &message)
{
    return {failureOf(extendedCode), extendedCode, path, message};
}

QString StoreError::description() const
{
    return path + QStringLiteral(": ") + detail + QStringLiteral(". ") + advice(failure);
}

QString StoreError::userInfo() const
{
    return QStringLiteral("{path: \"") + path + QStringLiteral("\", code: ") + QString::number(code) +
           QStringLiteral("}");
}

}
