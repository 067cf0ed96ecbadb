#pragma once

#include "Platform/Freedesktop/BusFactSource.h"

namespace tomcatto {

/// Whether a desktop's screen saver covers the session. Main thread only.
class ScreenSaverLock final : public BusFactSource
{
    Q_OBJECT

public:
    /// @param sessionBus it may be without a connection
    /// @param name of the service; its object and interface are named alike
    ScreenSaverLock(const QDBusConnection &sessionBus, const QString &name);

private Q_SLOTS:
    void askActive();

private:
    void look() override;

    Place m_place;
};

}
