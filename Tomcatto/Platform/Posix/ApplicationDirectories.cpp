#include "Platform/Posix/ApplicationDirectories.h"

#include "Foundation/ApplicationIdentity.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <unistd.h>

namespace tomcatto {

namespace {

/// Empty where neither the home folder nor the location's own variable is set: Qt takes the root folder for the home
/// then.
QString folderAt(QStandardPaths::StandardLocation location, const char *variable)
{
    if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty(variable))
        return {};
    QString path = QStandardPaths::writableLocation(location);
    return QDir::isAbsolutePath(path) ? path : QString();
}

QString inFolder(const QString &folder, const QString &name)
{
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + name;
}

QString configurationFile(const QString &name)
{
    return inFolder(folderAt(QStandardPaths::GenericConfigLocation, "XDG_CONFIG_HOME"),
                    applicationIdentifier + QLatin1Char('/') + name);
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
    return inFolder(folderAt(QStandardPaths::GenericConfigLocation, "XDG_CONFIG_HOME"), applicationIdentifier);
}

bool isOurs(const QFileInfo &info)
{
    return info.exists() && info.ownerId() == ::geteuid();
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

QString socketNamed(const QString &name)
{
    // A socket's address holds 108 bytes on Linux, 104 elsewhere, with the closing zero.
    constexpr qsizetype longestAddress = 103;
    QString path = inFolder(runtimeFolder(), name);
    if (QFile::encodeName(path).size() <= longestAddress)
        return path;
    const QByteArray digest = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return inFolder(temporaryRuntimeFolder(), QString::fromLatin1(digest) + QStringLiteral(".sock"));
}

}

std::optional<QString> ApplicationDirectories::applicationSupport() const
{
    QString path = folderAt(QStandardPaths::GenericDataLocation, "XDG_DATA_HOME");
    return path.isEmpty() ? std::nullopt : std::optional(std::move(path));
}

QString ApplicationDirectories::widgetSnapshotFile() const
{
    return inFolder(folderAt(QStandardPaths::GenericDataLocation, "XDG_DATA_HOME"),
                    QStringLiteral("group.") + applicationIdentifier + QStringLiteral("/widget-snapshot.json"));
}

QString ApplicationDirectories::bundled(const QString &name) const
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString beside = program.filePath(name);
    const QString installed = QDir::cleanPath(program.filePath(QStringLiteral("../share/Tomcatto/") + name));
    return !QFile::exists(beside) && QFile::exists(installed) ? installed : beside;
}

QString ApplicationDirectories::urlCache() const
{
    return inFolder(folderAt(QStandardPaths::GenericCacheLocation, "XDG_CACHE_HOME"), applicationIdentifier);
}

QString ApplicationDirectories::userDefaultsFile() const
{
    return configurationFile(QStringLiteral("defaults.json"));
}

QString ApplicationDirectories::instanceLockFile() const
{
    QString path = configurationFile(QStringLiteral("lock"));
    return path.isEmpty() ? fallbackInstanceLockFile() : path;
}

QString ApplicationDirectories::fallbackInstanceLockFile() const
{
    return inFolder(runtimeFolder(), applicationIdentifier + QStringLiteral(".lock"));
}

QString ApplicationDirectories::controlSocket() const
{
    return socketNamed(applicationIdentifier + QStringLiteral(".sock"));
}

QString ApplicationDirectories::widgetSettingsFile() const
{
    return configurationFile(QStringLiteral("widget.json"));
}

QString ApplicationDirectories::widgetLockFile() const
{
    return inFolder(runtimeFolder(), applicationIdentifier + QStringLiteral(".widget.lock"));
}

QString ApplicationDirectories::widgetSocket() const
{
    return socketNamed(applicationIdentifier + QStringLiteral(".widget.sock"));
}

QStringList ApplicationDirectories::reachableControlSockets(const QString &announced) const
{
    constexpr QFileDevice::Permissions writableByOthers = QFileDevice::WriteGroup | QFileDevice::WriteOther;
    QStringList places;
    if (QString own = controlSocket(); isOurs(QFileInfo(own)))
        places << std::move(own);
    const QFileInfo file(announced);
    const QFileInfo folder(file.path());
    if (file.isAbsolute() && !places.contains(announced) && isOurs(file) && isOurs(folder) &&
        !(folder.permissions() & writableByOthers))
        places << announced;
    return places;
}

}
