#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/Finding.h"
#include "Platform/Ports/ViewHost.h"
#include "Platform/Qt/ViewPlugin.h"
#include "Platform/Qt/WindowSystem.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

namespace tomcatto {

/// Makes views with what a plugin brings, which is loaded with the first of them: the libraries behind views take
/// several times the memory of the rest of the application. Main thread only.
class PluginViewHost final : public ViewHost
{
public:
    /// @param appearance has the properties `dark`, `reducedMotion`, `highContrast` and `textScale`, which views
    /// follow.
    /// @param texts the `LocalizedStrings` that views take their texts from.
    /// @param windowSystem outlives this, as the two above do.
    /// @param surroundings what views need of the platform besides.
    /// @param folders where the plugin may be, in the order of looking.
    PluginViewHost(QObject &appearance, QObject &texts, const WindowSystem &windowSystem,
                   ViewSurroundings surroundings = {}, QStringList folders = pluginFolders());
    ~PluginViewHost() override;

    /// Beside the program as it is built, and where an installation keeps plugins.
    [[nodiscard]] static QStringList pluginFolders();
    /// Looks whether the plugin and what views import are there, which loads the plugin.
    [[nodiscard]] static Finding findPlugin(const QStringList &folders = pluginFolders());

    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override;
    [[nodiscard]] QString problem() const override { return m_problem; }
    /// Whether the plugin is loaded.
    [[nodiscard]] bool isLoaded() const noexcept { return m_host != nullptr; }

private:
    void load();

    QObject &m_appearance;
    QObject &m_texts;
    const WindowSystem &m_windowSystem;
    ViewSurroundings m_surroundings;
    QStringList m_folders;
    const Logger m_logger{QStringLiteral("PluginViewHost")};
    QString m_problem;
    std::unique_ptr<ViewHost> m_host;
};

}
