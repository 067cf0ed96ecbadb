#pragma once

#include "BreakOverlay/BreakPreviewModel.h"
#include "BreakOverlay/BreakPreviewWindowController.h"
#include "ViewWindows/ViewWindows.h"

namespace tomcatto {

/// Shows what a break looks like with a video, in one ordinary window at a time. It leaves the timer alone. Main thread
/// only.
class BreakPreviewController final : public QObject
{
    Q_OBJECT

public:
    BreakPreviewController(const PomodoroSettings &settings, const LocalizedStrings &strings, MainRunLoop &runLoop,
                           ViewWindows &windows, ActivationPolicy &activationPolicy, QObject *parent = nullptr);

    /// Opens the preview of a video, in place of one that is open. @param videos where the window takes its one video
    /// from; its `finished` runs once the window is gone, or at once where it cannot be shown
    void open(const BreakVideoSource &videos) { open(videos, await()); }
    /// Notes that a preview is wanted whose file a disk is still asked for. @return its number
    [[nodiscard]] int await() noexcept { return ++m_newest; }
    /// Whether neither a later preview was opened since `await`, nor `close` called.
    [[nodiscard]] bool isAwaited(int preview) const noexcept { return preview > m_settled; }
    /// Opens the preview that has this number.
    void open(const BreakVideoSource &videos, int preview);
    /// Closes the window if it is open; what is awaited is awaited no longer.
    void close();
    [[nodiscard]] bool isOpen() const noexcept { return m_windowController != nullptr; }

private:
    void closeWindow() { m_windowController.reset(); }

    const PomodoroSettings &m_settings;
    const LocalizedStrings &m_strings;
    MainRunLoop &m_runLoop;
    ViewWindows &m_windows;
    ActivationPolicy &m_activationPolicy;
    std::unique_ptr<BreakPreviewWindowController> m_windowController;
    int m_newest = 0;
    /// The one that was opened last, or the newest one when all were closed.
    int m_settled = 0;
};

}
