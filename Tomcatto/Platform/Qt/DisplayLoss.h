#pragma once

#include <functional>

namespace tomcatto {

/// Notices that the display server has gone. The toolkit ends the process then, at once, with a failure and without
/// unwinding anything; this is the last chance to put things on disk. While an object is there, the process ends by
/// nothing else on its main thread. One object at a time; main thread only.
class DisplayLoss final
{
public:
    /// @param onLost called once, in the middle of whatever noticed the loss; it must not wait for the display or run
    /// an event loop. After it the process ends with status 0: to the application its display is the user's session.
    explicit DisplayLoss(std::function<void()> onLost);
    DisplayLoss(const DisplayLoss &) = delete;
    DisplayLoss &operator=(const DisplayLoss &) = delete;
    ~DisplayLoss();

private:
    std::function<void()> m_onLost;
};

}
