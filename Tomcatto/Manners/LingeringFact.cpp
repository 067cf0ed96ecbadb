#include "Manners/LingeringFact.h"

namespace tomcatto {

LingeringFact::LingeringFact(MainRunLoop &runLoop, Kind kind, std::function<void()> changed)
    : m_runLoop(runLoop)
    , m_kind(kind)
    , m_changed(runLoop, std::move(changed))
{
}

void LingeringFact::watch(bool isWanted, const Look &look)
{
    if (isWanted == m_looking.isActive())
        return;
    if (isWanted) {
        m_looking = look([this](Fact fact) { take(fact); });
        return;
    }
    m_looking.cancel();
    become(false);
}

void LingeringFact::take(Fact fact)
{
    if (fact == m_kind.holding || m_kind.linger.count() == 0)
        return become(fact == m_kind.holding);
    if (m_holds && !m_lingering.isActive())
        m_lingering = m_runLoop.after(m_kind.linger, [this] { become(false); });
}

void LingeringFact::become(bool holds)
{
    m_lingering.cancel();
    if (std::exchange(m_holds, holds) != holds)
        m_changed.schedule();
}

}
