#include "MainWindow/MainWindowController.h"

namespace tomcatto {

MainWindowController::MainWindowController(ViewWindows &windows, MainWindowRouter &router,
                                           ActivationPolicy &activationPolicy, MainWindowViewModel &viewModel,
                                           QObject *parent)
    : QObject(parent)
    , m_windows(windows)
    , m_router(router)
    , m_activationPolicy(activationPolicy)
    , m_viewModel(viewModel)
{
    connect(&router, &MainWindowRouter::pageRequested, this, [this](MainWindowPage page) {
        m_viewModel.show(page);
        openWindow();
    });
    connect(&viewModel, &MainWindowViewModel::pageChanged, this,
            [this] { m_router.setCurrentPage(m_viewModel.currentPage()); });
}

void MainWindowController::openWindow()
{
    if (m_window || makeWindow())
        m_window->view().present();
}

bool MainWindowController::makeWindow()
{
    m_window = m_windows.make({QStringLiteral("Tomcatto.MainWindow"),
                               QStringLiteral("MainWindow"),
                               {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&m_viewModel)}}});
    if (!m_window)
        return false;
    connect(m_window.get(), &ViewWindow::activeChanged, this, &MainWindowController::followActive);
    connect(m_window.get(), &ViewWindow::closed, this, &MainWindowController::closeWindow);
    return true;
}

void MainWindowController::followActive()
{
    if (!m_window || !m_window->view().isActive())
        return m_viewModel.stopRecording();
    if (!m_dockHold.isActive())
        m_dockHold = m_activationPolicy.hold();
    // The user may come back from the system's settings.
    m_viewModel.refreshPage();
}

void MainWindowController::closeWindow()
{
    m_window.reset();
    // It may go without having become inactive.
    m_viewModel.stopRecording();
    m_dockHold.cancel();
}

}
