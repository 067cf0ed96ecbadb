#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/ViewHost.h"
#include "Platform/X11/X11Display.h"

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
    /// @param texts the `LocalizedStrings` that views take their texts from; both outlive this.
    /// @param folders where the plugin may be, in the order of looking.
    PluginViewHost(QObject &appearance, QObject &texts, QStringList folders = pluginFolders());
    ~PluginViewHost() override;

    /// Beside the program as it is built, and where an installation keeps plugins.
    [[nodiscard]] static QStringList pluginFolders();

    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override;
    /// Why the last view could not be made; empty where it could.
    [[nodiscard]] const QString &problem() const noexcept { return m_problem; }
    /// Whether the plugin is loaded.
    [[nodiscard]] bool isLoaded() const noexcept { return m_host != nullptr; }

private:
    void load();

    QObject &m_appearance;
    QObject &m_texts;
    QStringList m_folders;
    X11Display m_display;
    const Logger m_logger{QStringLiteral("PluginViewHost")};
    QString m_problem;
    std::unique_ptr<ViewHost> m_host;
};

}
