#include "BreakOverlay/BreakPreviewController.h"

namespace tomcatto {

BreakPreviewController::BreakPreviewController(const PomodoroSettings &settings, const LocalizedStrings &strings,
                                               MainRunLoop &runLoop, ViewWindows &windows,
                                               ActivationPolicy &activationPolicy, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_strings(strings)
    , m_runLoop(runLoop)
    , m_windows(windows)
    , m_activationPolicy(activationPolicy)
{
}

void BreakPreviewController::open(const BreakVideoSource &videos, int preview)
{
    m_settled = preview;
    closeWindow();
    const std::shared_ptr<BreakPreviewModel> model(new BreakPreviewModel(m_settings, m_strings, m_runLoop, videos),
                                                   [finished = videos.finished](BreakPreviewModel *shown) {
                                                       delete shown;
                                                       if (finished)
                                                           finished();
                                                   });
    auto window = m_windows.make({QStringLiteral("Tomcatto.BreakOverlay"),
                                  QStringLiteral("BreakPreviewView"),
                                  {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(model.get())}}},
                                 model);
    if (!window)
        return;
    connect(window.get(), &ViewWindow::closed, this, &BreakPreviewController::closeWindow);
    m_windowController = std::make_unique<BreakPreviewWindowController>(std::move(window), m_activationPolicy);
}

void BreakPreviewController::close()
{
    m_settled = m_newest;
    closeWindow();
}

}
