#include "Persistence/StoreError.h"

#include "Foundation/EnumTexts.h"

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

// In the order of `StoreFailure`.
constexpr std::array advices{"Move the file elsewhere and start again",
                             "Put a backup in its place, or move the file elsewhere to begin a new history",
                             "Close the program that holds the file and start again",
                             "Make the file and its folder readable and writable",
                             "Free some space on its disk",
                             "Update the application; the file was left as it is",
                             "Check the disk and the file"};

}

StoreError StoreError::fromResultCode(int extendedCode, const QString &path, const QString &message)
{
    return {failureOf(extendedCode), extendedCode, path, message};
}

QString StoreError::advice() const
{
    return textOf(advices, failure);
}

QString StoreError::description() const
{
    return path + QStringLiteral(": ") + detail + QStringLiteral(". ") + advice();
}

QString StoreError::userInfo() const
{
    return QStringLiteral("{path: \"") + path + QStringLiteral("\", code: ") + QString::number(code) +
           QStringLiteral("}");
}

}
