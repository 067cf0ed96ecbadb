#pragma once

#include "MainWindow/MainWindowViewModel.h"
#include "Navigation/MainWindowRouter.h"
#include "SystemIntegration/ActivationPolicy.h"
#include "ViewWindows/ViewWindows.h"

namespace tomcatto {

/// Opens the main window when the router asks, lets it go when it is closed, and makes the application an ordinary one
/// from the moment the window becomes active until it closes. Closing it quits nothing. Main thread only.
class MainWindowController final : public QObject
{
    Q_OBJECT

public:
    MainWindowController(ViewWindows &windows, MainWindowRouter &router, ActivationPolicy &activationPolicy,
                         MainWindowViewModel &viewModel, QObject *parent = nullptr);

    /// Opens the window on the page it showed last, or brings it to the front.
    void openWindow();
    /// Closes the window if it is open.
    void closeWindow();
    [[nodiscard]] bool isOpen() const noexcept { return m_window != nullptr; }
    /// Whether the window keeps the application among the ordinary ones.
    [[nodiscard]] bool mainWindowHoldsDock() const noexcept { return m_dockHold.isActive(); }

private:
    bool makeWindow();
    void followActive();

    ViewWindows &m_windows;
    MainWindowRouter &m_router;
    ActivationPolicy &m_activationPolicy;
    MainWindowViewModel &m_viewModel;
    std::unique_ptr<ViewWindow> m_window;
    Cancellable m_dockHold;
};

}
