#include "Platform/Freedesktop/AutostartLoginItem.h"

#include "Foundation/ApplicationIdentity.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>

namespace tomcatto {

namespace {

/// A path as one argument of an Exec line: quoted, with the characters escaped that mean something inside quotes, per
/// cent signs doubled, and every backslash doubled once more because the line is a text value of the file.
QByteArray execArgument(const QString &path)
{
    QString argument;
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            argument += u'\\';
        if (character == u'%')
            argument += u'%';
        argument += character;
    }
    argument.replace(u'\\', QStringLiteral("\\\\")).replace(u'\n', QStringLiteral("\\n"));
    return '"' + argument.toUtf8() + '"';
}

/// What the desktop makes of an entry's text, whoever wrote it.
LoginItemStatus statusOf(const QByteArray &entry)
{
    bool isInside = false;
    bool isApplication = false;
    bool startsSomething = false;
    bool isSwitchedOff = false;
    for (const QByteArray &rawLine : entry.split('\n')) {
        const QByteArray line = rawLine.trimmed();
        if (line.startsWith('['))
            isInside = line == "[Desktop Entry]";
        const auto equals = line.indexOf('=');
        if (!isInside || equals < 0)
            continue;
        const QByteArray key = line.left(equals).trimmed();
        const QByteArray value = line.mid(equals + 1).trimmed();
        isApplication = isApplication || (key == "Type" && value == "Application");
        startsSomething = startsSomething || (key == "Exec" && !value.isEmpty());
        isSwitchedOff = isSwitchedOff || (key == "Hidden" && value == "true") ||
                        (key == "X-GNOME-Autostart-enabled" && value == "false");
    }
    if (!isApplication || !startsSomething)
        return LoginItemStatus::notRegistered;
    return isSwitchedOff ? LoginItemStatus::requiresApproval : LoginItemStatus::enabled;
}

}

AutostartLoginItem::AutostartLoginItem(QString program, QString folder)
    : m_program(std::move(program))
    , m_folder(std::move(folder))
{
}

QString AutostartLoginItem::userFolder()
{
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
    return "[Desktop Entry]\nType=Application\nName=" + productName.toUtf8() + "\nExec=" + execArgument(m_program) +
           " --background\nIcon=" + applicationIdentifier.toUtf8() +
           "\nTerminal=false\nStartupNotify=false\nX-GNOME-Autostart-enabled=true\n";
}

LoginItemStatus AutostartLoginItem::status() const
{
    QFile stored(file());
    if (!stored.exists())
        return LoginItemStatus::notRegistered;
    if (!stored.open(QIODevice::ReadOnly))
        return LoginItemStatus::unavailable;
    return statusOf(stored.readAll());
}

std::expected<void, QString> AutostartLoginItem::registerItem()
{
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
