#pragma once

#include "BreakOverlay/OverlayWindows.h"
#include "Manners/MannersService.h"
#include "Platform/Ports/KeyMonitor.h"

namespace tomcatto {

/// Decides when the break overlay is up: one window for each screen while a break runs, and while it waits where no
/// notification and no sound tells of it; never while it is held back. Where the desktop closes one window all of them
/// go, and the break runs on. Events arrive through the run loop and read the state at their delivery. Main thread
/// only.
class BreakOverlayController final : public QObject
{
    Q_OBJECT

public:
    /// Seconds before the end of a work phase at which the next windows are made ready.
    static constexpr qint64 warmingSeconds = 10;

    BreakOverlayController(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                           const PomodoroSettings &settings, const MannersService &manners, MainRunLoop &runLoop,
                           Screens &screens, KeyMonitor &keyMonitor, OverlayWindows &overlayWindows,
                           QObject *parent = nullptr);

    /// Covers the screens; nothing unless `phase` is a break. Windows shown before are replaced.
    void show(PomodoroPhase phase);
    /// Closes every window.
    void hide();
    [[nodiscard]] bool isShown() const noexcept { return !m_windows.empty(); }

Q_SIGNALS:
    /// The screens are about to be covered: what else plays or has the keyboard steps aside.
    void willShow();
    /// The screens are free again.
    void didHide();

private:
    void deliver(std::function<void()> handler);
    void phaseChanged(PomodoroPhase current);
    void pendingChanged(bool isPending);
    void screensChanged();
    void buildWindows();
    void skip();
    [[nodiscard]] bool isAnnouncedOtherwise() const;
    void updateWarmth();

    PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const PomodoroSettings &m_settings;
    const MannersService &m_manners;
    MainRunLoop &m_runLoop;
    Screens &m_screens;
    KeyMonitor &m_keys;
    OverlayWindows &m_overlayWindows;
    std::vector<std::unique_ptr<OverlayWindow>> m_windows;
    // Installed exactly while windows are shown.
    Cancellable m_keyMonitor;
    // The phase that was current when the machine last began to wait.
    std::optional<PomodoroPhase> m_pendingPhase;
    bool m_isPending;
    Cancellable m_screensCancellable;
    Cancellable m_warmth;
};

}
