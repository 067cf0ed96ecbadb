#include "Platform/Posix/FileIdentity.h"

#include <sys/stat.h>

namespace tomcatto {

std::optional<FileStatus> fileStatus(const QByteArray &nativePath, SymbolicLinks links)
{
    struct stat status = {};
    if ((links == SymbolicLinks::keep ? ::lstat : ::stat)(nativePath.constData(), &status) != 0)
        return std::nullopt;
    return FileStatus{{status.st_dev, status.st_ino, std::nullopt}, S_ISREG(status.st_mode), S_ISDIR(status.st_mode)};
}

}
