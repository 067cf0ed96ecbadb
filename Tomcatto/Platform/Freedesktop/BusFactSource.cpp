#include "Platform/Freedesktop/BusFactSource.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

namespace tomcatto {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds answerLimit = 5s;

}

BusFactSource::BusFactSource(const QDBusConnection &bus, QString service)
    : m_bus(bus)
    , m_service(std::move(service))
{
    m_absence.setSingleShot(true);
    m_absence.setInterval(answerLimit);
    connect(&m_absence, &QTimer::timeout, this, [this] { tell(Fact::untold); });
}

BusFactSource::~BusFactSource() = default;

void BusFactSource::begin()
{
    if (!m_bus.isConnected())
        return tell(Fact::untold);
    m_watcher = std::make_unique<QDBusServiceWatcher>(m_service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &newOwner) { followOwner(newOwner); });
    m_questions = std::make_unique<QObject>();
    look();
}

void BusFactSource::end()
{
    if (!m_watcher)
        return;
    leave();
    forget();
    m_questions.reset();
    m_watcher.reset();
    m_absence.stop();
}

void BusFactSource::followOwner(const QString &newOwner)
{
    forget();
    if (newOwner.isEmpty())
        return m_absence.start();
    m_absence.stop();
    look();
}

void BusFactSource::forget()
{
    m_questions = std::make_unique<QObject>();
    for (const auto &unsubscribe : std::exchange(m_subscriptions, {}))
        unsubscribe();
}

QDBusMessage BusFactSource::message(const Place &place, const QString &method, const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, place.path, place.interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

void BusFactSource::ask(const Place &place, const QString &method, const QVariantList &arguments, Answered onAnswer,
                        std::function<void()> onError)
{
    // Signals may arrive after the last one who watched has gone.
    if (!m_questions)
        return;
    const auto call = m_bus.asyncCall(message(place, method, arguments), static_cast<int>(answerLimit.count()));
    auto *const watcher = new QDBusPendingCallWatcher(call, m_questions.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, onAnswer = std::move(onAnswer), onError = std::move(onError)] {
                watcher->deleteLater();
                if (!watcher->isError())
                    onAnswer(watcher->reply().arguments());
                else if (onError)
                    onError();
                else
                    tell(Fact::untold);
            });
}

void BusFactSource::send(const Place &place, const QString &method, const QVariantList &arguments)
{
    m_bus.send(message(place, method, arguments));
}

void BusFactSource::listen(const Place &place, const QString &signal, const char *slot)
{
    m_bus.connect(m_service, place.path, place.interface, signal, this, slot);
    m_subscriptions.emplace_back(
        [this, place, signal, slot] { m_bus.disconnect(m_service, place.path, place.interface, signal, this, slot); });
}

}
