#pragma once

#include "BreakOverlay/BreakPreviewWindowController.h"

namespace tomcatto {

/// Shows what a break looks like with a video, in one ordinary window at a time. It leaves the timer alone. Main thread
/// only.
class BreakPreviewController final : public QObject
{
    Q_OBJECT

public:
    BreakPreviewController(const PomodoroSettings &settings, LocalizedStrings &strings, MainRunLoop &runLoop,
                           ViewHost &viewHost, ActivationPolicy &activationPolicy, QObject *parent = nullptr);
    ~BreakPreviewController() override;

    /// Opens the preview of a video, in place of one that is open. @param videos where the window takes its one video
    /// from; its `finished` runs once the window has closed, or at once where it cannot be shown
    void open(BreakVideoSource videos);
    /// Closes the window if it is open.
    void close();
    [[nodiscard]] bool isOpen() const noexcept { return m_windowController != nullptr; }

private:
    void windowClosed();

    const PomodoroSettings &m_settings;
    LocalizedStrings &m_strings;
    MainRunLoop &m_runLoop;
    ViewHost &m_viewHost;
    ActivationPolicy &m_activationPolicy;
    // Read by the open window, which therefore ends first.
    std::shared_ptr<BreakVideoSource> m_videos;
    std::shared_ptr<BreakPreviewWindowController> m_windowController;
};

}
