#include "Platform/Qt/ScreenChanges.h"

namespace tomcatto {

ScreenChanges::ScreenChanges(MainRunLoop &runLoop, std::function<bool()> hasLiveScreens)
    : m_runLoop(runLoop)
    , m_hasLiveScreens(std::move(hasLiveScreens))
{
}

void ScreenChanges::note()
{
    m_quiet = m_runLoop.after(quietTime, [this] { report(); });
}

void ScreenChanges::report()
{
    // The screen that ends the wait is a change of its own, so nothing is lost here.
    if (m_hasLiveScreens())
        m_handlers.call();
}

}
