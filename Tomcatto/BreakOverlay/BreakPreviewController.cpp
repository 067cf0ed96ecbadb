#include "BreakOverlay/BreakPreviewController.h"

#include <utility>

namespace tomcatto {

BreakPreviewController::BreakPreviewController(const PomodoroSettings &settings, const LocalizedStrings &strings,
                                               MainRunLoop &runLoop, ViewHost &viewHost,
                                               ActivationPolicy &activationPolicy, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_strings(strings)
    , m_runLoop(runLoop)
    , m_viewHost(viewHost)
    , m_activationPolicy(activationPolicy)
{
}

BreakPreviewController::~BreakPreviewController()
{
    close();
    letGo();
}

void BreakPreviewController::open(BreakVideoSource videos)
{
    close();
    m_preview.videos = std::make_unique<BreakVideoSource>(std::move(videos));
    auto viewModel = std::make_unique<BreakPreviewModel>(m_settings, m_strings, m_runLoop, *m_preview.videos);
    auto view = m_viewHost.create({QStringLiteral("Tomcatto.BreakOverlay"),
                                   QStringLiteral("BreakPreviewView"),
                                   {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(viewModel.get())}}});
    if (!view) {
        windowClosed();
        return;
    }
    m_preview.windowController = std::make_unique<BreakPreviewWindowController>(
        std::move(viewModel), std::move(view), m_activationPolicy, [this] { windowClosed(); });
}

void BreakPreviewController::close()
{
    if (isOpen())
        windowClosed();
}

void BreakPreviewController::windowClosed()
{
    if (isOpen())
        m_preview.windowController->end();
    m_leaving.push_back(std::exchange(m_preview, {}));
    // The closing call may come from inside the window.
    m_runLoop.async(*this, [this] { letGo(); });
}

void BreakPreviewController::letGo()
{
    for (Preview &preview : std::exchange(m_leaving, {})) {
        preview.windowController.reset();
        if (preview.videos->finished)
            preview.videos->finished();
    }
}

}
