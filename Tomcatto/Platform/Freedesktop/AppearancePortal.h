#pragma once

#include "Foundation/Logger.h"
#include "Platform/Qt/DesktopAppearance.h"

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>

class QDBusMessage;

namespace tomcatto {

/// What the desktop's portal says about looks, asked over D-Bus and followed live. Nothing here waits for the bus;
/// while no portal answers, the appearance is left as it is. Main thread only.
class AppearancePortal final : public QObject
{
    Q_OBJECT

public:
    /// @param sessionBus the session's bus; it may be without a connection.
    /// @param appearance is told; outlives this.
    AppearancePortal(const QDBusConnection &sessionBus, DesktopAppearance &appearance);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void askPortal();
    void tell();

    QDBusConnection m_bus;
    DesktopAppearance &m_appearance;
    const Logger m_logger{QStringLiteral("AppearancePortal")};
    /// What the portal said, by namespace and key with a space between.
    QVariantMap m_settings;
};

}
