#include "MainWindow/MainWindowController.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace tomcatto {

namespace {

/// Makes a window that is larger than its screen fit; its lower rows and its corner would be out of reach.
void fitScreen(QWindow &window)
{
    // How high the title bar is shows only later, when the window has its frame.
    constexpr int titleBarHeight = 40;
    const QScreen *const screen = window.screen();
    if (screen == nullptr)
        return;
    const QSize room = screen->availableSize() - QSize(0, titleBarHeight);
    window.resize(window.size().boundedTo(room).expandedTo(window.minimumSize()));
}

}

MainWindowController::MainWindowController(ViewHost &viewHost, MainWindowRouter &router,
                                           ActivationPolicy &activationPolicy, MainWindowViewModel &viewModel,
                                           QObject *parent)
    : QObject(parent)
    , m_viewHost(viewHost)
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

MainWindowController::~MainWindowController() = default;

void MainWindowController::openWindow()
{
    if (!m_view && !makeView())
        return;
    QWindow &window = m_view->window();
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.requestActivate();
}

bool MainWindowController::makeView()
{
    m_view = m_viewHost.create({QStringLiteral("Tomcatto.MainWindow"),
                                QStringLiteral("MainWindow"),
                                {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&m_viewModel)}}});
    if (!m_view)
        return false;
    fitScreen(m_view->window());
    observe(m_view->window());
    return true;
}

void MainWindowController::observe(QWindow &window)
{
    connect(&window, &QWindow::activeChanged, this, &MainWindowController::becameActive);
    // Queued: the window is let go after its signal has been delivered.
    connect(
        &window, &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible)
                closed();
        },
        Qt::QueuedConnection);
}

void MainWindowController::becameActive()
{
    if (!m_view || !m_view->window().isActive())
        return;
    if (!m_dockHold.isActive())
        m_dockHold = m_activationPolicy.hold();
    // The user may come back from the system's settings.
    m_viewModel.refreshPage();
}

void MainWindowController::closeWindow()
{
    if (m_view)
        m_view->window().close();
}

void MainWindowController::closed()
{
    // It may have been opened again before this was delivered.
    if (!m_view || m_view->window().isVisible())
        return;
    m_view.reset();
    m_dockHold.cancel();
}

}
