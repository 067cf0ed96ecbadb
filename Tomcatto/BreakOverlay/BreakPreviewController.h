#pragma once

#include "BreakOverlay/BreakPreviewWindowController.h"

namespace tomcatto {

/// Shows what a break looks like with a video, in one ordinary window at a time. It leaves the timer alone. Main thread
/// only.
class BreakPreviewController final : public QObject
{
    Q_OBJECT

public:
    BreakPreviewController(const PomodoroSettings &settings, const LocalizedStrings &strings, MainRunLoop &runLoop,
                           ViewHost &viewHost, ActivationPolicy &activationPolicy, QObject *parent = nullptr);
    ~BreakPreviewController() override;

    /// Opens the preview of a video, in place of one that is open. @param videos where the window takes its one video
    /// from; its `finished` runs once the window has closed, or at once where it cannot be shown
    void open(BreakVideoSource videos);
    /// Closes the window if it is open.
    void close();
    [[nodiscard]] bool isOpen() const noexcept { return m_preview.windowController != nullptr; }

private:
    /// Member order: the window reads the videos and therefore ends first.
    struct Preview
    {
        std::unique_ptr<BreakVideoSource> videos;
        std::unique_ptr<BreakPreviewWindowController> windowController;
    };

    void windowClosed();
    void letGo();

    const PomodoroSettings &m_settings;
    const LocalizedStrings &m_strings;
    MainRunLoop &m_runLoop;
    ViewHost &m_viewHost;
    ActivationPolicy &m_activationPolicy;
    Preview m_preview;
    // Closed, and gone in the next turn of the run loop, or with this object where there is none.
    std::vector<Preview> m_leaving;
};

}
