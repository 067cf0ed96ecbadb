#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/ViewHost.h"

#include <QtCore/QObject>

namespace tomcatto {

/// What the plugin with the views offers to the program that loads it.
class ViewPlugin
{
public:
    virtual ~ViewPlugin() = default;

    /// Makes a host for views. The plugin stays loaded as long as the process lives.
    /// @param appearance has the properties that views follow: `dark`, `reducedMotion`, `highContrast`, `textScale`; it
    /// outlives the host.
    /// @param texts the `LocalizedStrings` that views take their texts from; they outlive the host.
    /// @param log takes the plugin's log lines.
    [[nodiscard]] virtual std::unique_ptr<ViewHost> makeViewHost(QObject &appearance, QObject &texts, LogSink log) = 0;
};

}

Q_DECLARE_INTERFACE(tomcatto::ViewPlugin, "studio.quillbay.Tomcatto.ViewPlugin/1")
