#include "Platform/Qt/PluginViewHost.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QPluginLoader>
#include <QtGui/QWindow>

namespace tomcatto {

namespace {

const QString fileName = QStringLiteral("tomcatto-views.so");

}

PluginViewHost::PluginViewHost(QObject &appearance, QObject &texts, const WindowSystem &windowSystem,
                               ViewSurroundings surroundings, QStringList folders)
    : m_appearance(appearance)
    , m_texts(texts)
    , m_windowSystem(windowSystem)
    , m_surroundings(std::move(surroundings))
    , m_folders(std::move(folders))
{
}

PluginViewHost::~PluginViewHost() = default;

QStringList PluginViewHost::pluginFolders()
{
    const QString folder = QCoreApplication::applicationDirPath();
    return {folder, folder + QStringLiteral("/../" TOMCATTO_LIBRARY_FOLDER "/tomcatto")};
}

std::unique_ptr<HostedView> PluginViewHost::create(const ViewDescription &description)
{
    m_problem.clear();
    if (!m_host)
        load();
    if (!m_host) {
        m_logger.error(QStringLiteral("windows cannot be shown: ") + m_problem);
        return nullptr;
    }
    auto view = m_host->create(description);
    if (view)
        view->window().setProperty("isComposited", m_windowSystem.isComposited());
    else
        m_problem = m_host->problem();
    return view;
}

void PluginViewHost::load()
{
    for (const QString &folder : std::as_const(m_folders)) {
        const QString file = folder + u'/' + fileName;
        if (!QFile::exists(file))
            continue;
        QPluginLoader loader(file);
        auto *plugin = qobject_cast<ViewPlugin *>(loader.instance());
        if (plugin == nullptr) {
            m_problem = loader.errorString();
            return;
        }
        // The plugin has a log of its own, whose lines belong into this one.
        m_host = plugin->makeViewHost(m_appearance, m_texts, m_surroundings,
                                      [](LogLevel level, const QString &category, const QString &message) {
                                          const Logger logger(category);
                                          switch (level) {
                                          case LogLevel::debug:
                                              return logger.debug(message);
                                          case LogLevel::info:
                                              return logger.info(message);
                                          case LogLevel::error:
                                              return logger.error(message);
                                          case LogLevel::fault:
                                              return logger.fault(message);
                                          }
                                      });
        return;
    }
    m_problem = QStringLiteral("%1 is not in %2; is Tomcatto installed completely?")
                    .arg(fileName, m_folders.join(QStringLiteral(", ")));
}

}
