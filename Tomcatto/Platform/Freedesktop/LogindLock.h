#pragma once

#include "Platform/Freedesktop/BusFactSource.h"

namespace tomcatto {

/// Whether logind holds this session for locked. The requests to lock are not counted: a desktop answers them by the
/// hint. Main thread only.
class LogindLock final : public BusFactSource
{
    Q_OBJECT

public:
    /// @param systemBus the bus that logind is on; it may be without a connection
    explicit LogindLock(const QDBusConnection &systemBus);

private Q_SLOTS:
    void noteChange(const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

private:
    void look() override;
    /// Asks for the first of these sessions that is there, then for that of this process.
    void findSession(QStringList names);
    void follow(const QVariantList &session);
    void askHint();

    /// The properties of the session.
    Place m_session;
};

}
