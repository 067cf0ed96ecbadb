#pragma once

#include "Platform/Ports/SharedFactSource.h"

#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

class QDBusMessage;

namespace tomcatto {

/// A fact that a service on a bus tells, while it is there; it is never started for this. Nothing waits for it: what is
/// not answered within five seconds is untold. When the service is gone, what it said last holds for as long, in which
/// most have been started anew. Main thread only.
class BusFactSource : public QObject, public SharedFactSource
{
    Q_OBJECT

public:
    ~BusFactSource() override;

protected:
    using Answered = std::function<void(const QVariantList &values)>;

    /// @param bus it may be without a connection
    BusFactSource(const QDBusConnection &bus, QString service);

    /// Subscribes to what the service tells, then asks; called at the beginning and for each service that comes anew.
    virtual void look() = 0;
    /// Undoes at the service what `look` has set up there.
    virtual void leave() {}

    /// Where to reach an object of the service.
    struct Place
    {
        QString path;
        QString interface;
    };
    /// Asks the service. After `end`, or when the service has changed, no answer comes.
    /// @param onError the fact is untold without it
    void ask(const Place &place, const QString &method, const QVariantList &arguments, Answered onAnswer,
             std::function<void()> onError = nullptr);
    /// Tells the service something whose answer does not matter.
    void send(const Place &place, const QString &method, const QVariantList &arguments);
    /// Connects a signal of the service to a slot of this, until `end`.
    void listen(const Place &place, const QString &signal, const char *slot);

private:
    void begin() final;
    void end() final;
    void followOwner(const QString &newOwner);
    void forget();
    [[nodiscard]] QDBusMessage message(const Place &place, const QString &method, const QVariantList &arguments) const;

    QDBusConnection m_bus;
    QString m_service;
    /// There only while somebody watches.
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    /// Runs while the service is gone.
    QTimer m_absence;
    /// What the answers that are awaited belong to.
    std::unique_ptr<QObject> m_questions;
    std::vector<std::function<void()>> m_subscriptions;
};

}
