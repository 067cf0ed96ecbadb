#include "App/PlatformAdapters.h"

namespace tomcatto {

PlatformAdapters::PlatformAdapters(const ApplicationDirectories &directories,
                                   std::map<QString, DefaultsValue> argumentDomain)
    : m_directories(directories)
    , m_wallClock(QDBusConnection::systemBus())
    , m_defaultsFile(m_directories.userDefaultsFile())
    , m_defaults(m_defaultsFile, std::move(argumentDomain))
    , m_workspacePower(QDBusConnection::systemBus())
{
}

PlatformServices PlatformAdapters::services()
{
    return {m_monotonicClock,
            m_wallClock,
            m_runLoop,
            m_identifiers,
            m_defaults,
            m_workspacePower,
            m_directories.applicationSupport()};
}

}
