#pragma once

#include "Foundation/HandlerList.h"
#include "Platform/Ports/MainRunLoop.h"

namespace tomcatto {

/// Turns bursts of changes to the screens into single reports, and keeps them back while there is no live screen. Main
/// thread only.
class ScreenChanges final
{
public:
    /// How long the screens must be quiet before a burst counts as over.
    static constexpr std::chrono::milliseconds quietTime{50};

    /// @param hasLiveScreens whether there is a screen that is not a stand-in
    ScreenChanges(MainRunLoop &runLoop, std::function<bool()> hasLiveScreens);

    /// Something about the screens changed.
    void note();
    [[nodiscard]] Cancellable onChanged(std::function<void()> handler) { return m_handlers.add(std::move(handler)); }

private:
    void report();

    MainRunLoop &m_runLoop;
    std::function<bool()> m_hasLiveScreens;
    HandlerList m_handlers;
    Cancellable m_quiet;
};

}
