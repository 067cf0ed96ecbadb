#pragma once

#include "Platform/Ports/WidgetCenter.h"

#include <QtDBus/QDBusConnection>

namespace tomcatto {

/// Tells widgets on the session bus that their data changed, by the signal `ReloadTimelines` with the kind of the
/// widgets. Main thread only.
class WidgetSignal final : public WidgetCenter
{
public:
    /// @param sessionBus it may be without a connection; then nothing is told.
    explicit WidgetSignal(QDBusConnection sessionBus)
        : m_bus(std::move(sessionBus))
    {
    }

    void reloadTimelines(const QString &kind) override;

private:
    QDBusConnection m_bus;
};

}
