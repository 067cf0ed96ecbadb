#include "Platform/Freedesktop/FreedesktopNotificationCenter.h"

#include "Foundation/ApplicationIdentity.h"

#include <algorithm>
#include <QtDBus/QDBusPendingCallWatcher>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
constexpr int answerLimitMilliseconds = 5000;
/// A server that never tells that one is closed must not make this grow.
constexpr std::size_t mostShown = 16;
/// Of the reasons for closing: the user sent it away.
constexpr uint dismissedByUser = 2;
constexpr uchar normalUrgency = 1;
constexpr int serverDecides = -1;

QVariantMap hints(const NotificationPresentation &presentation)
{
    QVariantMap hints{{QStringLiteral("desktop-entry"), applicationIdentifier},
                      {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)},
                      {QStringLiteral("suppress-sound"), !presentation.hasSound}};
    if (!presentation.isInList)
        hints.insert(QStringLiteral("transient"), true);
    return hints;
}

}

FreedesktopNotificationCenter::FreedesktopNotificationCenter(const QDBusConnection &sessionBus, MainRunLoop &runLoop)
    : m_bus(sessionBus)
    , m_runLoop(runLoop)
{
}

void FreedesktopNotificationCenter::setNotificationCategories(std::vector<NotificationCategory> categories)
{
    m_categories = std::move(categories);
}

void FreedesktopNotificationCenter::add(const NotificationRequest &request)
{
    m_pending[request.identifier] = m_runLoop.after(request.delay, [this, request] {
        m_pending.erase(request.identifier);
        present(request);
    });
}

void FreedesktopNotificationCenter::removePendingRequests(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        m_pending.erase(identifier);
}

void FreedesktopNotificationCenter::present(const NotificationRequest &request)
{
    if (!m_bus.isConnected())
        return;
    listen();
    call(QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetCapabilities")),
         [this, request](const QDBusMessage &reply) { notify(request, reply.arguments().value(0).toStringList()); });
}

void FreedesktopNotificationCenter::notify(const NotificationRequest &request, const QStringList &capabilities)
{
    const NotificationPresentation presentation = m_delegate ? m_delegate->willPresent() : NotificationPresentation{};
    if (!presentation.isBanner && !presentation.isInList)
        return;
    const auto same =
        std::ranges::find(m_shown, request.identifier, [](const Shown &shown) { return shown.request.identifier; });
    const QString body =
        capabilities.contains(QLatin1String("body-markup")) ? request.body.toHtmlEscaped() : request.body;
    const bool hasBody = capabilities.contains(QLatin1String("body"));
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    message << productName << (same == m_shown.end() ? 0U : same->id) << applicationIdentifier
            << (hasBody ? request.title : QStringLiteral("%1: %2").arg(request.title, request.body))
            << (hasBody ? body : QString()) << actions(request, capabilities) << hints(presentation) << serverDecides;
    call(message, [this, request](const QDBusMessage &reply) {
        std::erase_if(m_shown, [&](const Shown &shown) { return shown.request.identifier == request.identifier; });
        if (m_shown.size() == mostShown)
            m_shown.erase(m_shown.begin());
        m_shown.push_back({reply.service(), reply.arguments().value(0).toUInt(), request});
    });
}

QStringList FreedesktopNotificationCenter::actions(const NotificationRequest &request,
                                                   const QStringList &capabilities) const
{
    if (!capabilities.contains(QLatin1String("actions")))
        return {};
    // Servers that list the actions show the name of the one that a press on the notification itself is.
    QStringList actions{QLatin1String(defaultActionIdentifier), productName};
    const auto category =
        std::ranges::find(m_categories, request.categoryIdentifier, &NotificationCategory::identifier);
    if (category == m_categories.end())
        return actions;
    for (const NotificationAction &action : category->actions)
        actions << action.identifier << action.title;
    return actions;
}

void FreedesktopNotificationCenter::listen()
{
    if (std::exchange(m_isListening, true))
        return;
    // From everybody: to name the server would ask the bus who that is, and wait for the answer.
    const auto connectTo = [this](const char *signal, const char *slot) {
        m_bus.connect(QString(), path, service, QLatin1String(signal), this, slot);
    };
    connectTo("ActivationToken", SLOT(takeActivationToken(QDBusMessage)));
    connectTo("ActionInvoked", SLOT(takeAction(QDBusMessage)));
    connectTo("NotificationClosed", SLOT(takeClosing(QDBusMessage)));
}

void FreedesktopNotificationCenter::call(const QDBusMessage &message, const OnReply &onReply)
{
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, answerLimitMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, onReply] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() == QDBusMessage::ReplyMessage)
            onReply(reply);
        else
            m_logger.info(QStringLiteral("a notification was not shown: ") + reply.errorMessage());
    });
}

std::vector<FreedesktopNotificationCenter::Shown>::iterator
FreedesktopNotificationCenter::find(const QDBusMessage &signal)
{
    const uint id = signal.arguments().value(0).toUInt();
    return std::ranges::find_if(m_shown,
                                [&](const Shown &shown) { return shown.id == id && shown.server == signal.service(); });
}

void FreedesktopNotificationCenter::respond(const QString &action, const NotificationRequest &request)
{
    if (m_delegate)
        m_delegate->didReceive({action, request.userInfo});
}

void FreedesktopNotificationCenter::takeActivationToken(const QDBusMessage &signal)
{
    // The next window that asks to be activated hands it to the compositor.
    if (find(signal) != m_shown.end())
        qputenv("XDG_ACTIVATION_TOKEN", signal.arguments().value(1).toString().toUtf8());
}

void FreedesktopNotificationCenter::takeAction(const QDBusMessage &signal)
{
    if (const auto found = find(signal); found != m_shown.end())
        respond(signal.arguments().value(1).toString(), NotificationRequest(found->request));
}

void FreedesktopNotificationCenter::takeClosing(const QDBusMessage &signal)
{
    const auto found = find(signal);
    if (found == m_shown.end())
        return;
    const NotificationRequest request = found->request;
    m_shown.erase(found);
    if (signal.arguments().value(1).toUInt() == dismissedByUser)
        respond(QLatin1String(dismissActionIdentifier), request);
}

}
