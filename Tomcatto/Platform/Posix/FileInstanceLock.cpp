#include "Platform/Posix/FileInstanceLock.h"

#include "Foundation/Logger.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace {

/// Makes a folder and those above it; where it cannot, errno tells why.
bool makeFolder(const QString &path, mode_t mode)
{
    constexpr mode_t byMask = 0777;
    const auto make = [&] { return ::mkdir(QFile::encodeName(path).constData(), mode) == 0 || errno == EEXIST; };
    return make() || (errno == ENOENT && makeFolder(QFileInfo(path).path(), byMask) && make());
}

}

FileInstanceLock::FileInstanceLock(QString primaryPath, QString fallbackPath)
    : m_primaryPath(std::move(primaryPath))
    , m_fallbackPath(std::move(fallbackPath))
{
}

FileInstanceLock::~FileInstanceLock()
{
    release();
}

InstanceLockResult FileInstanceLock::tryTake()
{
    if (m_descriptor >= 0)
        return InstanceLockResult::taken;
    const Logger logger(QStringLiteral("FileInstanceLock"));
    for (const QString &path : {m_primaryPath, m_fallbackPath}) {
        if (const auto result = tryTakeAt(path); result != InstanceLockResult::unavailable)
            return result;
        const QString reason = QString::fromLocal8Bit(std::strerror(errno));
        // Those who wait for the lock try often.
        if (m_reported.contains(path))
            continue;
        m_reported.append(path);
        logger.error(QStringLiteral("instance lock %1 is unavailable: %2").arg(path, reason));
    }
    return InstanceLockResult::unavailable;
}

InstanceLockResult FileInstanceLock::tryTakeAt(const QString &path)
{
    constexpr mode_t ownerOnly = 0600;
    constexpr mode_t ownerOnlyFolder = 0700;
    if (!makeFolder(QFileInfo(path).absolutePath(), ownerOnlyFolder))
        return InstanceLockResult::unavailable;
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly);
    if (descriptor < 0)
        return InstanceLockResult::unavailable;
    int status = 0;
    do {
        status = ::flock(descriptor, LOCK_EX | LOCK_NB);
    } while (status != 0 && errno == EINTR);
    if (status == 0) {
        m_descriptor = descriptor;
        return InstanceLockResult::taken;
    }
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
    return reason == EWOULDBLOCK ? InstanceLockResult::held : InstanceLockResult::unavailable;
}

void FileInstanceLock::release()
{
    if (m_descriptor < 0)
        return;
    announce({});
    ::close(std::exchange(m_descriptor, -1));
}

void FileInstanceLock::announce(const QString &address)
{
    const QByteArray bytes = QFile::encodeName(address);
    if (m_descriptor < 0)
        return;
    if (::ftruncate(m_descriptor, 0) != 0 || ::pwrite(m_descriptor, bytes.constData(), bytes.size(), 0) != bytes.size())
        Logger(QStringLiteral("FileInstanceLock")).info(QStringLiteral("The address of this process cannot be noted"));
}

QString FileInstanceLock::announced() const
{
    constexpr qint64 longestAddress = 4096;
    for (const QString &path : {m_primaryPath, m_fallbackPath}) {
        QFile file(path);
        if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && file.size() > 0)
            return QFile::decodeName(file.read(longestAddress));
    }
    return {};
}

}
