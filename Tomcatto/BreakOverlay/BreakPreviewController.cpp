#include "BreakOverlay/BreakPreviewController.h"

#include <utility>

namespace tomcatto {

BreakPreviewController::BreakPreviewController(const PomodoroSettings &settings, LocalizedStrings &strings,
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
}

void BreakPreviewController::open(BreakVideoSource videos)
{
    close();
    m_videos = std::make_shared<BreakVideoSource>(std::move(videos));
    auto viewModel = std::make_unique<BreakPreviewModel>(m_settings, m_strings, m_runLoop, *m_videos);
    auto view = m_viewHost.create({QStringLiteral("Tomcatto.BreakOverlay"),
                                   QStringLiteral("BreakPreviewView"),
                                   {{QStringLiteral("strings"), QVariant::fromValue<QObject *>(&m_strings)},
                                    {QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(viewModel.get())}}});
    if (!view) {
        windowClosed();
        return;
    }
    m_windowController = std::make_shared<BreakPreviewWindowController>(std::move(viewModel), std::move(view),
                                                                        m_activationPolicy, [this] { windowClosed(); });
}

void BreakPreviewController::close()
{
    if (m_windowController)
        windowClosed();
}

void BreakPreviewController::windowClosed()
{
    const auto videos = std::exchange(m_videos, nullptr);
    // Whoever closes may be inside the window, which therefore goes in a later turn of the run loop.
    auto window = std::exchange(m_windowController, nullptr);
    if (window)
        window->end();
    m_runLoop.async([videos, closed = std::move(window)]() mutable {
        closed.reset();
        if (videos && videos->finished)
            videos->finished();
    });
}

}
