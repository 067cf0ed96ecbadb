#pragma once

#include "BreakOverlay/BreakPreviewModel.h"
#include "Platform/Ports/ViewHost.h"
#include "SystemIntegration/ActivationPolicy.h"

namespace tomcatto {

/// The open preview window, which holds the application's place in the taskbar until it closes. Main thread only.
class BreakPreviewWindowController final : public QObject
{
    Q_OBJECT

public:
    /// Shows `view` with the application among the ordinary ones. @param onClose called when the user closes the window
    BreakPreviewWindowController(std::unique_ptr<BreakPreviewModel> viewModel, std::unique_ptr<HostedView> view,
                                 ActivationPolicy &activationPolicy, std::function<void()> onClose);
    ~BreakPreviewWindowController() override;

    /// Closes the window without calling `onClose`, as the destructor does. The view itself goes with this object.
    void end();
    /// Whether the window keeps the application among the ordinary ones.
    [[nodiscard]] bool holdsDockPolicy() const noexcept { return m_dockPolicy.isActive(); }

private:
    void windowWillClose();

    std::function<void()> m_onClose;
    // The view goes before what it shows.
    std::unique_ptr<BreakPreviewModel> m_viewModel;
    std::unique_ptr<HostedView> m_view;
    Cancellable m_dockPolicy;
};

}
