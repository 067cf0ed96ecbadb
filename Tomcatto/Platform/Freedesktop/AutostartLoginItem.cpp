#include "Platform/Freedesktop/AutostartLoginItem.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/AutostartEntry.h"

#include <algorithm>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>

namespace tomcatto {

namespace {

/// The file that a word of a command starts; empty where there is none.
QString startedFile(const QString &word)
{
    if (!word.contains(u'/'))
        return QFileInfo(QStandardPaths::findExecutable(word)).canonicalFilePath();
    const QFileInfo file(word);
    return file.isFile() && file.isExecutable() ? file.canonicalFilePath() : QString();
}

/// Whether both are programs of the same installation: the one for a terminal hands over to the desktop's beside it.
bool isSameInstallation(const QString &started, const QString &program)
{
    const QFileInfo own(program);
    const QFileInfo other(started);
    return other.canonicalPath() == own.canonicalPath() &&
           (other.fileName().startsWith(own.fileName() + u'-') || own.fileName().startsWith(other.fileName() + u'-') ||
            other.fileName() == own.fileName());
}

LoginItemStatus statusOf(const AutostartEntry &entry, const QString &program)
{
    if (!entry.isApplication || entry.command.isEmpty())
        return LoginItemStatus::notRegistered;
    if (entry.isSwitchedOff)
        return LoginItemStatus::requiresApproval;
    if (startedFile(entry.command.front()).isEmpty() ||
        (!entry.neededProgram.isEmpty() && startedFile(entry.neededProgram).isEmpty()))
        return LoginItemStatus::outdated;
    // Somebody may have put the program behind another, such as one that sets the environment.
    const QString own = QFileInfo(program).canonicalFilePath();
    const bool isThis = std::ranges::any_of(entry.command, [&](const QString &word) {
        const QString started = startedFile(word);
        return !started.isEmpty() && isSameInstallation(started, own);
    });
    return isThis ? LoginItemStatus::enabled : LoginItemStatus::otherProgram;
}

}

AutostartLoginItem::AutostartLoginItem(QString program, QString folder)
    : m_program(std::move(program))
    , m_folder(std::move(folder))
{
}

QString AutostartLoginItem::userFolder()
{
    // The toolkit would take the root folder for the home.
    if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty("XDG_CONFIG_HOME"))
        return {};
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/autostart");
}

QString AutostartLoginItem::programAtLogin()
{
    const QFileInfo desktop(QCoreApplication::applicationDirPath() + QStringLiteral("/tomcatto-desktop"));
    return desktop.isFile() && desktop.isExecutable() ? desktop.filePath() : QCoreApplication::applicationFilePath();
}

QString AutostartLoginItem::file() const
{
    return m_folder + u'/' + applicationIdentifier + QStringLiteral(".desktop");
}

QByteArray AutostartLoginItem::entry() const
{
    return "[Desktop Entry]\nType=Application\nName=" + productName.toUtf8() +
           "\nExec=" + AutostartEntry::commandWord(m_program) +
           " --background\nIcon=" + applicationIdentifier.toUtf8() +
           "\nTerminal=false\nStartupNotify=false\nX-GNOME-Autostart-enabled=true\n";
}

LoginItemStatus AutostartLoginItem::status() const
{
    if (m_folder.isEmpty())
        return LoginItemStatus::unavailable;
    QFile stored(file());
    if (!stored.exists())
        return LoginItemStatus::notRegistered;
    if (!stored.open(QIODevice::ReadOnly))
        return LoginItemStatus::unavailable;
    return statusOf(AutostartEntry::read(stored.readAll()), m_program);
}

std::expected<void, QString> AutostartLoginItem::registerItem()
{
    if (m_folder.isEmpty())
        return std::unexpected(QStringLiteral("the user has no folder for it"));
    if (!QDir().mkpath(m_folder))
        return std::unexpected(QStringLiteral("the folder %1 cannot be made").arg(m_folder));
    QSaveFile stored(file());
    const QByteArray text = entry();
    // A buffer would hide a full disk until committing, which does not notice it.
    if (!stored.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || stored.write(text) != text.size() ||
        !stored.commit())
        return std::unexpected(QStringLiteral("%1: %2").arg(stored.fileName(), stored.errorString()));
    return {};
}

std::expected<void, QString> AutostartLoginItem::unregisterItem()
{
    QFile stored(file());
    if (stored.exists() && !stored.remove())
        return std::unexpected(QStringLiteral("%1: %2").arg(stored.fileName(), stored.errorString()));
    return {};
}

}
