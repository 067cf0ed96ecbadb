#pragma once

#include "Platform/Freedesktop/BusFactSource.h"

#include <chrono>

namespace tomcatto {

/// Whether keys and pointer have rested for some time, as GNOME's compositor watches it. Main thread only.
class MutterRest final : public BusFactSource
{
    Q_OBJECT

public:
    /// @param sessionBus it may be without a connection
    MutterRest(const QDBusConnection &sessionBus, std::chrono::milliseconds rest);

private Q_SLOTS:
    void noteFired(uint watch);

private:
    void look() override;
    void leave() override;
    /// Tells how it is. The compositor's watches say only when to ask.
    void askTime();
    void noteTime(std::chrono::milliseconds idle);

    std::chrono::milliseconds m_rest;
    /// The compositor's numbers of its watches, 0 without one. The first goes off at each rest, the second once.
    uint m_restWatch = 0;
    uint m_touchWatch = 0;
    bool m_isTouchWatchComing = false;
};

}
