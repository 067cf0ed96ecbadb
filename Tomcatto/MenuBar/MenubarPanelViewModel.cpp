#include "MenuBar/MenubarPanelViewModel.h"

#include "MenuBar/StateSubscription.h"
#include "MenuBar/TransportControls.h"

namespace tomcatto {
namespace {

constexpr qint64 lastMinuteSeconds = 60;

}

MenubarPanelViewModel::MenubarPanelViewModel(const MenuBarServices &services, PopoverNavigationStore &navigationStore,
                                             MainWindowRouter &router, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_navigationStore(navigationStore)
    , m_router(router)
    , m_source(services)
    , m_clock(m_source.clock())
    , m_phase(m_source.phase())
    , m_strip(m_source.strip())
{
    m_cancellables.push_back(subscribeToState(services, [this] { update(); }));
    m_cancellables.push_back(services.wallClock.onDayChanged([this] { update(); }));
    connect(&services.statsAggregator, &StatsAggregator::changes, this, &MenubarPanelViewModel::update);
    connect(&navigationStore, &PopoverNavigationStore::pathChanged, this, &MenubarPanelViewModel::routeChanged);
}

void MenubarPanelViewModel::update()
{
    const PanelClock clock = m_source.clock();
    const PanelPhase phase = m_source.phase();
    const PanelStrip strip = m_source.strip();
    // At rest the dial is called like the phase that comes first.
    const bool isNewPhase = phase.name != m_phase.name || phase.theme != m_phase.theme;
    // The phase first: the dial then takes its new colour and its new arc in one motion.
    if (phase != m_phase) {
        const bool isBack = phase.wasAway && !m_phase.wasAway;
        m_phase = phase;
        Q_EMIT phaseChanged();
        if (isBack)
            say(m_phase.headline);
    }
    if (clock != m_clock) {
        m_clock = clock;
        announce(isNewPhase);
        Q_EMIT clockChanged();
    }
    if (strip != m_strip) {
        m_strip = strip;
        Q_EMIT stripChanged();
    }
}

void MenubarPanelViewModel::announce(bool isNewPhase)
{
    const PomodoroStateMachine &machine = m_services.stateMachine;
    const bool isLastMinute = machine.currentPhase() != PomodoroPhase::idle && !machine.isOverflowing() &&
                              m_services.timer.remainingSeconds() == lastMinuteSeconds;
    if (!isNewPhase && !isLastMinute)
        return;
    say(m_clock.name);
}

void MenubarPanelViewModel::say(const QString &words)
{
    m_announcement = words;
    Q_EMIT announcementChanged();
}

void MenubarPanelViewModel::primary()
{
    if (m_services.manners.awaySince())
        m_services.manners.resumeAfterAway();
    else
        performPrimary(m_services.stateMachine);
}

void MenubarPanelViewModel::reset()
{
    m_services.stateMachine.reset();
}

void MenubarPanelViewModel::skip()
{
    m_services.stateMachine.skip();
}

void MenubarPanelViewModel::takeBreak()
{
    if (m_services.manners.awaySince())
        m_services.manners.takeBreakAfterAway();
    else
        m_services.stateMachine.takeBreak();
}

void MenubarPanelViewModel::extend()
{
    m_services.stateMachine.extend(extensionSeconds);
}

void MenubarPanelViewModel::openStatistics()
{
    m_navigationStore.append(PopoverRoute::stats);
}

void MenubarPanelViewModel::openSettings()
{
    m_router.openSettings();
    Q_EMIT dismissRequested();
}

void MenubarPanelViewModel::back()
{
    if (m_navigationStore.path().empty())
        Q_EMIT dismissRequested();
    else
        m_navigationStore.back();
}

void MenubarPanelViewModel::quit()
{
    Q_EMIT quitRequested();
}

}
