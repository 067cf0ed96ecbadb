#pragma once

#include "Platform/Ports/MainRunLoop.h"

#include <QtCore/QObject>
#include <utility>

namespace tomcatto {

/// Merges many wishes for one action into one call of it in a later turn of the main loop. Main thread only.
class OncePerTurn final : public QObject
{
public:
    OncePerTurn(MainRunLoop &runLoop, std::function<void()> action)
        : m_runLoop(runLoop)
        , m_action(std::move(action))
    {
    }

    /// The action runs in a later turn, unless this object is gone by then; a wish that comes while it runs counts
    /// anew.
    void schedule()
    {
        if (std::exchange(m_isScheduled, true))
            return;
        m_runLoop.async(*this, [this] {
            m_isScheduled = false;
            m_action();
        });
    }

private:
    MainRunLoop &m_runLoop;
    std::function<void()> m_action;
    bool m_isScheduled = false;
};

}
