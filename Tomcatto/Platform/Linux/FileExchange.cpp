#include "Platform/Linux/FileExchange.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <QtCore/QFile>
#include <unistd.h>

namespace tomcatto {

std::error_code exchangeFile(const QString &part, const QString &file)
{
    const QByteArray from = QFile::encodeName(part);
    const QByteArray to = QFile::encodeName(file);
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_EXCHANGE) == 0) {
        // What was there before; should it stay, the next part is written over it.
        ::unlink(from.constData());
        return {};
    }
    if (::rename(from.constData(), to.constData()) == 0)
        return {};
    return {errno, std::generic_category()};
}

}
