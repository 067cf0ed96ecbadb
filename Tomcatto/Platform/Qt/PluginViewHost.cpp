#include "Platform/Qt/PluginViewHost.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QLibraryInfo>
#include <QtCore/QPluginLoader>
#include <QtGui/QWindow>

namespace tomcatto {

namespace {

const QString fileName = QStringLiteral("tomcatto-views.so");

/// Where the plugin is; empty where it is not.
QString pluginIn(const QStringList &folders)
{
    for (const QString &folder : folders) {
        if (QString file = folder + u'/' + fileName; QFile::exists(file))
            return file;
    }
    return {};
}

QString missingFrom(const QStringList &folders)
{
    return QStringLiteral("%1 is not in %2; is Tomcatto installed completely?")
        .arg(fileName, folders.join(QStringLiteral(", ")));
}

/// The modules that views import, which packages of their own bring, as the engine's folders have them.
QStringList missingModules()
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::QmlImportsPath) + u'/';
    QStringList missing;
    for (const char *module :
         {"QtQml", "QtQml/Models", "QtQml/WorkerScript", "QtQuick", "QtQuick/Templates", "QtQuick/Window"}) {
        if (!QFile::exists(folder + QLatin1String(module) + QStringLiteral("/qmldir")))
            missing << QString::fromLatin1(module).replace(u'/', u'.');
    }
    return missing;
}

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

Finding PluginViewHost::findPlugin(const QStringList &folders)
{
    const QString part = QStringLiteral("windows");
    const QString advice = QStringLiteral("Install Tomcatto completely, with the packages that it depends on");
    const QString file = pluginIn(folders);
    QPluginLoader loader(file);
    if (file.isEmpty() || !loader.load())
        return {part, Finding::Mark::failing, file.isEmpty() ? missingFrom(folders) : loader.errorString(), advice};
    if (const QStringList missing = missingModules(); !missing.empty())
        return {part, Finding::Mark::failing,
                QStringLiteral("these modules of QML are missing: ") + missing.join(QLatin1String(", ")), advice};
    return {part, Finding::Mark::there, QStringLiteral("what they need is there"), {}};
}

void PluginViewHost::load()
{
    const QString file = pluginIn(m_folders);
    if (file.isEmpty()) {
        m_problem = missingFrom(m_folders);
        return;
    }
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
}

}
