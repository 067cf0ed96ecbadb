#include "Platform/Portable/ApplicationDirectories.h"

#include "Foundation/ApplicationIdentity.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <unistd.h>

namespace tomcatto {

namespace {

QString inFolder(QStandardPaths::StandardLocation location, const QString &name)
{
    return QStandardPaths::writableLocation(location) + QLatin1Char('/') + name;
}

/// A folder of this user alone below the temporary location. A foreign one of that name is refused by the change of its
/// access, which only the owner may do.
QString temporaryRuntimeFolder()
{
    QString path = QDir::tempPath() + QStringLiteral("/tomcatto-") + QString::number(::geteuid());
    constexpr QFileDevice::Permissions ownerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    if (QDir().mkdir(path, ownerOnly))
        return path;
    const QFileInfo info(path);
    const bool isOurs = info.isDir() && !info.isSymLink() && info.ownerId() == ::geteuid();
    if (isOurs && QFile::setPermissions(path, ownerOnly))
        return path;
    return inFolder(QStandardPaths::GenericConfigLocation, applicationIdentifier);
}

/// Qt's own look-up falls back as well, but complains on standard error.
QString runtimeFolder()
{
    const QString path = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QFileInfo info(path);
    if (!path.isEmpty() && info.isAbsolute() && info.isDir() && info.isWritable())
        return QDir::cleanPath(path);
    return temporaryRuntimeFolder();
}

}

std::optional<QString> ApplicationDirectories::applicationSupport() const
{
    if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        return std::nullopt;
    QString path = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir::isAbsolutePath(path))
        return std::nullopt;
    return path;
}

QString ApplicationDirectories::userDefaultsFile() const
{
    return inFolder(QStandardPaths::GenericConfigLocation, applicationIdentifier + QStringLiteral("/defaults.json"));
}

QString ApplicationDirectories::instanceLockFile() const
{
    return inFolder(QStandardPaths::GenericConfigLocation, applicationIdentifier + QStringLiteral("/lock"));
}

QString ApplicationDirectories::fallbackInstanceLockFile() const
{
    return runtimeFolder() + QLatin1Char('/') + applicationIdentifier + QStringLiteral(".lock");
}

QString ApplicationDirectories::controlSocket() const
{
    // A socket's address holds 108 bytes on Linux, 104 elsewhere, with the closing zero.
    constexpr qsizetype longestAddress = 103;
    const QString name = QLatin1Char('/') + applicationIdentifier + QStringLiteral(".sock");
    QString path = runtimeFolder() + name;
    if (QFile::encodeName(path).size() <= longestAddress)
        return path;
    const QByteArray digest = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return temporaryRuntimeFolder() + QLatin1Char('/') + QString::fromLatin1(digest) + QStringLiteral(".sock");
}

QString ApplicationDirectories::urlCache() const
{
    return inFolder(QStandardPaths::GenericCacheLocation, applicationIdentifier);
}

QString ApplicationDirectories::widgetSnapshotFile() const
{
    return inFolder(QStandardPaths::GenericDataLocation,
                    QStringLiteral("group.") + applicationIdentifier + QStringLiteral("/widget-snapshot.json"));
}

QStringList ApplicationDirectories::infoDictionaryFiles() const
{
    QStringList files;
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        files << folder + QLatin1Char('/') + applicationIdentifier + QStringLiteral("/Info.json");
    return files;
}

}
