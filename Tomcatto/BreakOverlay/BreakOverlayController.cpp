#include "BreakOverlay/BreakOverlayController.h"

#include <utility>

namespace tomcatto {

BreakOverlayController::BreakOverlayController(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer,
                                               const PomodoroSettings &settings, const MannersService &manners,
                                               MainRunLoop &runLoop, Screens &screens, KeyMonitor &keyMonitor,
                                               OverlayWindows &overlayWindows, QObject *parent)
    : QObject(parent)
    , m_stateMachine(stateMachine)
    , m_timer(timer)
    , m_settings(settings)
    , m_manners(manners)
    , m_runLoop(runLoop)
    , m_screens(screens)
    , m_keys(keyMonitor)
    , m_overlayWindows(overlayWindows)
    , m_isPending(stateMachine.isPhasePending())
{
    connect(&m_stateMachine, &PomodoroStateMachine::transitioned, this, [this](const PhaseTransition &transition) {
        deliver([this, current = transition.current] { phaseChanged(current); });
    });
    connect(&m_stateMachine, &PomodoroStateMachine::isPhasePendingChanged, this, [this](bool isPending) {
        if (std::exchange(m_isPending, isPending) != isPending)
            deliver([this, isPending] { pendingChanged(isPending); });
    });
    connect(&m_manners, &MannersService::heldByChanged, this, [this] {
        // It is no longer held back, and waits for the user all the same.
        if (!m_manners.heldBy() && m_stateMachine.isPhasePending())
            deliver([this] { phaseChanged(m_stateMachine.currentPhase()); });
    });
    deliver([this, isPending = m_isPending] { pendingChanged(isPending); });
    m_screensCancellable = m_screens.onChanged([this] {
        // At once: a turn later the screens that the report is about may be gone, and the overlay with them.
        screensChanged();
    });
    connect(&m_timer, &PomodoroTimer::remainingSecondsChanged, this, &BreakOverlayController::updateWarmth);
    connect(&m_stateMachine, &PomodoroStateMachine::isPausedChanged, this, &BreakOverlayController::updateWarmth);
}

void BreakOverlayController::deliver(std::function<void()> handler)
{
    m_runLoop.async(*this, std::move(handler));
}

void BreakOverlayController::phaseChanged(PomodoroPhase current)
{
    const bool waitsUnseen = m_stateMachine.isPhasePending() && (m_manners.heldBy() || isAnnouncedOtherwise());
    if (!isBreak(current) || waitsUnseen)
        hide();
    else
        show(current);
    m_warmth.cancel();
}

bool BreakOverlayController::isAnnouncedOtherwise() const
{
    return m_settings.notificationsEnabled() || m_settings.soundEnabled();
}

void BreakOverlayController::pendingChanged(bool isPending)
{
    const PomodoroPhase current = m_stateMachine.currentPhase();
    if (isPending) {
        m_pendingPhase = current;
        return;
    }
    const auto waited = std::exchange(m_pendingPhase, std::nullopt);
    if (waited == current && !isShown() && !m_stateMachine.isPhasePending())
        show(current);
}

void BreakOverlayController::screensChanged()
{
    if (isShown())
        buildWindows();
}

void BreakOverlayController::show(PomodoroPhase phase)
{
    if (isBreak(phase))
        buildWindows();
}

void BreakOverlayController::hide()
{
    const bool wasShown = isShown();
    m_windows.clear();
    m_keyMonitor.cancel();
    if (wasShown)
        Q_EMIT didHide();
}

void BreakOverlayController::buildWindows()
{
    if (!isShown())
        Q_EMIT willShow();
    m_windows.clear();
    OverlayWindow *main = nullptr;
    for (const Screen &screen : m_screens.screens()) {
        auto window = m_overlayWindows.make(screen, [this] { hide(); });
        if (!window)
            continue;
        window->makeKey();
        if (screen.isMain)
            main = window.get();
        m_windows.push_back(std::move(window));
    }
    if (main)
        main->makeKey();
    if (m_windows.empty())
        m_keyMonitor.cancel();
    else if (!m_keyMonitor.isActive())
        m_keyMonitor = m_keys.onKeyDown(Qt::Key_Escape, [this](const KeyPress &) { skip(); });
}

void BreakOverlayController::skip()
{
    hide();
    m_stateMachine.skip();
}

void BreakOverlayController::updateWarmth()
{
    // What a break was warmed for is let go once the break is shown.
    if (m_stateMachine.currentPhase() != PomodoroPhase::working)
        return;
    const bool willShow = (m_settings.autoStartBreaks() && !m_settings.overflowEnabled()) || !isAnnouncedOtherwise();
    const bool ends = m_timer.remainingSeconds() <= warmingSeconds && m_timer.remainingSeconds() > 0;
    const bool isSoon = ends && !m_stateMachine.isPaused() && !m_timer.allowsOverflow();
    if (!isSoon || !willShow)
        m_warmth.cancel();
    else if (!m_warmth.isActive())
        m_warmth = m_overlayWindows.warm();
}

}
