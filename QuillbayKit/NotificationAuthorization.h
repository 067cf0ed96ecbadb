#pragma once

#include "Platform/Ports/NotificationProbe.h"

#include <QtCore/QObject>

namespace quillbay {

/// Whether the application may notify, as the system said last. Main thread only.
class NotificationAuthorization final : public QObject
{
    Q_OBJECT

public:
    /// Asks nothing yet: the state is not determined until `refresh` or `request` was answered.
    explicit NotificationAuthorization(tomcatto::NotificationProbe &probe, QObject *parent = nullptr);

    [[nodiscard]] tomcatto::NotificationPermission permission() const noexcept { return m_result.permission; }
    /// Whether notifications can carry buttons.
    [[nodiscard]] bool hasActions() const noexcept { return m_result.hasActions; }
    /// The program that shows them; empty where it is not known.
    [[nodiscard]] const QString &serverName() const noexcept { return m_result.serverName; }

    /// Reads the state anew, without asking the user.
    void refresh();
    /// Asks the user, where the system does so.
    void request();

Q_SIGNALS:
    void changed();

private:
    void take(const tomcatto::NotificationProbeResult &result);

    tomcatto::NotificationProbe &m_probe;
    tomcatto::NotificationProbeResult m_result;
};

}
