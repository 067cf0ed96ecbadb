#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/MessageBus.h"

#include <deque>
#include <map>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

namespace tomcatto {

/// Offers the application on the session bus, by the name `studio.quillbay.Tomcatto`. The bus hands over calls as fast
/// as they come, so they wait here, a limited number of each caller: callers take turns, and the main loop gets to
/// everything else between some milliseconds of them. Main thread only.
class SessionMessageBus final : public QDBusVirtualObject, public MessageBus
{
    Q_OBJECT

public:
    /// @param sessionBus it may be without a connection; then nothing is offered.
    /// @param runLoop outlives the bus.
    /// @param afterRush called some time after more calls than can wait have come, which leave much unused memory.
    SessionMessageBus(const QDBusConnection &sessionBus, MainRunLoop &runLoop, std::function<void()> afterRush = {});

    void offer(BusObject &object) override;
    void withdraw() override;
    void announceChange(const QVariantMap &properties) override;
    void announce(const QString &signal, const QVariantList &arguments) override;

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void noteRush();
    void answerSome();
    void answerNext();
    void answer(const QDBusMessage &message);
    [[nodiscard]] QDBusMessage propertiesReply(const QDBusMessage &message) const;
    void refuse(const QDBusMessage &message, BusProblem problem, const QString &text);
    void reply(const QDBusMessage &message, const QDBusMessage &reply);

    QDBusConnection m_bus;
    MainRunLoop &m_runLoop;
    const Logger m_logger{QStringLiteral("SessionMessageBus")};
    BusObject *m_object = nullptr;
    /// Of each caller, in the order they came.
    std::map<QString, std::deque<QDBusMessage>> m_calls;
    QString m_lastCaller;
    Cancellable m_turn;
    std::function<void()> m_afterRush;
    Cancellable m_rush;
};

}
