#include "Platform/Linux/BirthTime.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tomcatto {

std::optional<FileStatus> fileStatusWithBirth(const QByteArray &nativePath, SymbolicLinks links)
{
    const int linkFlag = links == SymbolicLinks::keep ? AT_SYMLINK_NOFOLLOW : 0;
    struct statx status = {};
    if (statx(AT_FDCWD, nativePath.constData(), AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT | linkFlag,
              STATX_TYPE | STATX_INO | STATX_BTIME, &status) != 0)
        return std::nullopt;
    FileStatus result;
    result.identity.device = gnu_dev_makedev(status.stx_dev_major, status.stx_dev_minor);
    result.identity.inode = status.stx_ino;
    if ((status.stx_mask & STATX_BTIME) != 0U)
        result.identity.birthNanoseconds =
            qint64{status.stx_btime.tv_sec} * 1'000'000'000 + qint64{status.stx_btime.tv_nsec};
    result.isRegularFile = S_ISREG(status.stx_mode);
    result.isDirectory = S_ISDIR(status.stx_mode);
    return result;
}

}
