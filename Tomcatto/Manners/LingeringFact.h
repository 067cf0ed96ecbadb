#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/OncePerTurn.h"
#include "Platform/Ports/Surroundings.h"

namespace tomcatto {

/// Whether a fact holds, while it matters; it goes on holding for a while after it was told last. Main thread only.
class LingeringFact final
{
public:
    /// Begins to look at a source.
    using Look = std::function<Cancellable(FactSource::Handler)>;

    /// What is told as `holding` holds, everything else does not.
    struct Kind
    {
        Fact holding = Fact::yes;
        std::chrono::milliseconds linger{0};
    };

    /// @param changed is called in a turn of its own, so that it may stop the looking.
    LingeringFact(MainRunLoop &runLoop, Kind kind, std::function<void()> changed);

    /// Looks from now on, or no longer: then it does not hold. Looking already, it goes on.
    void watch(bool isWanted, const Look &look);
    [[nodiscard]] bool holds() const noexcept { return m_holds; }

private:
    void take(Fact fact);
    void become(bool holds);

    MainRunLoop &m_runLoop;
    Kind m_kind;
    OncePerTurn m_changed;
    bool m_holds = false;
    Cancellable m_looking;
    Cancellable m_lingering;
};

}
