#pragma once

#include "SystemIntegration/ActivationPolicy.h"
#include "ViewWindows/ViewWindow.h"

namespace tomcatto {

/// The open preview window, which holds the application's place in the taskbar until it closes. Main thread only.
class BreakPreviewWindowController final
{
public:
    /// Shows `window` with the application among the ordinary ones.
    BreakPreviewWindowController(std::unique_ptr<ViewWindow> window, ActivationPolicy &activationPolicy)
        : m_window(std::move(window))
        , m_dockPolicy(activationPolicy.hold())
    {
        m_window->view().present();
    }

    /// Whether the window keeps the application among the ordinary ones.
    [[nodiscard]] bool holdsDockPolicy() const noexcept { return m_dockPolicy.isActive(); }

private:
    std::unique_ptr<ViewWindow> m_window;
    Cancellable m_dockPolicy;
};

}
