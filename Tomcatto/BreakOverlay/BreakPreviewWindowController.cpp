#include "BreakOverlay/BreakPreviewWindowController.h"

#include <QtGui/QWindow>
#include <utility>

namespace tomcatto {

BreakPreviewWindowController::BreakPreviewWindowController(std::unique_ptr<BreakPreviewModel> viewModel,
                                                           std::unique_ptr<HostedView> view,
                                                           ActivationPolicy &activationPolicy,
                                                           std::function<void()> onClose)
    : m_onClose(std::move(onClose))
    , m_viewModel(std::move(viewModel))
    , m_view(std::move(view))
    , m_dockPolicy(activationPolicy.hold())
{
    QWindow &window = m_view->window();
    connect(&window, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (!isVisible)
            windowWillClose();
    });
    window.show();
    window.raise();
    window.requestActivate();
}

BreakPreviewWindowController::~BreakPreviewWindowController()
{
    end();
}

void BreakPreviewWindowController::end()
{
    m_onClose = nullptr;
    m_view->window().hide();
    m_dockPolicy.cancel();
}

void BreakPreviewWindowController::windowWillClose()
{
    if (const auto onClose = std::exchange(m_onClose, nullptr))
        onClose();
}

}
