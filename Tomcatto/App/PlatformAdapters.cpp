#include "App/PlatformAdapters.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

/// Beside the program as it is built, else where an installation keeps shared files.
QString bundledVideosDirectory()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *place : {"BundledVideos", "../share/Tomcatto/BundledVideos"}) {
        const QString folder = program.filePath(QString::fromLatin1(place));
        if (QFileInfo(folder).isDir())
            return QDir::cleanPath(folder);
    }
    return program.filePath(QStringLiteral("BundledVideos"));
}

}

PlatformAdapters::PlatformAdapters(const ApplicationDirectories &directories,
                                   std::map<QString, DefaultsValue> argumentDomain)
    : m_directories(directories)
    , m_wallClock(QDBusConnection::systemBus())
    , m_defaultsFile(m_directories.userDefaultsFile())
    , m_defaults(m_defaultsFile, std::move(argumentDomain))
    , m_workspacePower(QDBusConnection::systemBus())
    , m_bookmarks(std::make_shared<const FileBookmarks>(QDir::homePath()))
    , m_stillFrame(LoadedStillFrame::pluginPath(QCoreApplication::applicationDirPath()))
    , m_loginItem(AutostartLoginItem::programAtLogin())
{
}

PlatformServices PlatformAdapters::services()
{
    return {m_monotonicClock,        m_wallClock, m_runLoop,    m_identifiers, m_defaults,
            m_workspacePower,        m_bookmarks, m_stillFrame, m_loginItem,   m_directories.applicationSupport(),
            bundledVideosDirectory()};
}

}
