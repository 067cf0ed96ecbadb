#include "Platform/Qt/QuickViewHost.h"

#include "Appearance/Texts.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlError>
#include <QtQuick/QQuickWindow>

namespace tomcatto {

namespace {

/// The path below which modules that are built in are found.
const QString modulesAddress = QStringLiteral("qrc:/qt-project.org/imports/");

}

QuickViewHost::QuickViewHost(QObject &appearance, QObject &texts, WindowPlaces &places)
    : m_places(places)
    , m_settings(nullptr)
    , m_mirror(appearance, m_settings, {"dark", "reducedMotion", "highContrast", "textScale"})
{
    m_engine.setOutputWarningsToStandardError(false);
    connect(&m_engine, &QQmlEngine::warnings, this, [this](const QList<QQmlError> &warnings) {
        for (const QQmlError &warning : warnings)
            m_logger.error(warning.toString());
    });
    m_settings.install(m_engine);
    Texts::install(m_engine, texts);
}

std::unique_ptr<HostedView> QuickViewHost::create(const ViewDescription &description)
{
    m_problem.clear();
    if (auto window = makeWindow(description))
        return std::make_unique<WindowView>(std::move(window), description.kind, m_places);
    m_problem = QStringLiteral("the view %1 is faulty; the log says more").arg(description.component);
    return nullptr;
}

std::unique_ptr<QWindow> QuickViewHost::makeWindow(const ViewDescription &description)
{
    QString folder = description.module;
    folder.replace(u'.', u'/');
    QQmlComponent component(&m_engine,
                            QUrl(modulesAddress + folder + u'/' + description.component + QStringLiteral(".qml")));
    std::unique_ptr<QObject> root(component.isReady() ? component.createWithInitialProperties(description.properties)
                                                      : nullptr);
    // A root without a property that it requires is made all the same, with an error.
    if (root == nullptr || component.isError()) {
        m_logger.error(QStringLiteral("%1.%2 cannot be shown: %3")
                           .arg(description.module, description.component, component.errorString().trimmed()));
        return nullptr;
    }
    auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (window == nullptr) {
        m_logger.error(QStringLiteral("%1.%2 is not a window").arg(description.module, description.component));
        return nullptr;
    }
    static_cast<void>(root.release());
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    window->setPersistentGraphics(false);
    window->setPersistentSceneGraph(false);
    return std::unique_ptr<QWindow>(window);
}

}
