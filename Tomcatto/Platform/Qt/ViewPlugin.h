#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/ViewHost.h"

#include <QtCore/QObject>

namespace tomcatto {

/// What views need of the platform besides windows.
struct ViewSurroundings
{
    /// Whether a graphics processor is certain to draw what OpenGL is asked for. A wrong guess ends in a software
    /// OpenGL, which draws everything twice as slowly and takes more than twice the memory (measured for the panel:
    /// 115 MB against 43 MB); the other mistake costs little, since views are flat and mostly still.
    std::function<bool()> hasGraphicsProcessor = [] { return false; };
    /// Called when the engine behind the views has been let go.
    std::function<void()> released = [] {};
};

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
    [[nodiscard]] virtual std::unique_ptr<ViewHost> makeViewHost(QObject &appearance, QObject &texts,
                                                                 const ViewSurroundings &surroundings, LogSink log) = 0;
};

}

Q_DECLARE_INTERFACE(tomcatto::ViewPlugin, "studio.quillbay.Tomcatto.ViewPlugin/2")
