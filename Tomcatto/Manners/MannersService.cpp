#include "Manners/MannersService.h"

namespace tomcatto {

MannersService::MannersService(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
    , m_settings(parts.defaults)
    , m_word(parts.stateMachine, parts.timer, m_settings)
{
    connect(&m_word, &WordBefore::isBreakNearChanged, this, &MannersService::isBreakNearChanged);
    if (!parts.surroundings)
        return;
    m_hold =
        std::make_unique<BreakHold>(parts.stateMachine, parts.timer, m_settings, parts.runLoop, *parts.surroundings);
    connect(m_hold.get(), &BreakHold::heldByChanged, this, &MannersService::heldByChanged);
    connect(m_hold.get(), &BreakHold::breakBegan, this, &MannersService::heldBreakBegan);
    m_away = std::make_unique<AwayPause>(parts.stateMachine, m_settings, parts.wallClock, parts.runLoop,
                                         *parts.surroundings);
    connect(m_away.get(), &AwayPause::awaySinceChanged, this, &MannersService::awaySinceChanged);
}

void MannersService::resumeAfterAway()
{
    if (awaySince())
        m_parts.stateMachine.resume();
}

void MannersService::takeBreakAfterAway()
{
    if (awaySince() && !m_parts.stateMachine.takeBreak())
        m_parts.stateMachine.skip();
}

void MannersService::prepareForSleep()
{
    if (m_away)
        m_away->prepareForSleep();
}

void MannersService::wakeUp()
{
    if (m_away)
        m_away->wakeUp();
}

}
