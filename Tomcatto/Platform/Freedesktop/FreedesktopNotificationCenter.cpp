#include "Platform/Freedesktop/FreedesktopNotificationCenter.h"

#include "Foundation/ApplicationIdentity.h"

#include <algorithm>
#include <QtDBus/QDBusPendingCallWatcher>

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
constexpr int answerLimitMilliseconds = 5000;
/// A server that has hung for a while shows what it was told after all; by its answer the buttons work.
constexpr int showLimitMilliseconds = 120'000;
/// A server that never tells that one is closed must not make this grow.
constexpr std::size_t mostShown = 100;
/// Of the reasons for closing: the user sent it away.
constexpr uint dismissedByUser = 2;
constexpr uchar normalUrgency = 1;
constexpr int serverDecides = -1;
constexpr const char *activationTokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr std::chrono::seconds activationOffer{2};

QDBusMessage serverCall(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

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
    , m_pending(runLoop, [this](const PendingNotifications::Ticket &ticket) { present(ticket); })
{
}

FreedesktopNotificationCenter::~FreedesktopNotificationCenter()
{
    for (const Shown &shown : m_shown) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(shown.server, path, service, QStringLiteral("CloseNotification"));
        m_bus.send(message << shown.id);
    }
}

void FreedesktopNotificationCenter::setNotificationCategories(std::vector<NotificationCategory> categories)
{
    m_categories = std::move(categories);
}

void FreedesktopNotificationCenter::present(const PendingNotifications::Ticket &ticket)
{
    listen();
    call(serverCall(QStringLiteral("GetCapabilities")), answerLimitMilliseconds,
         [this, ticket](const QDBusMessage &reply) {
             const auto request = m_pending.take(ticket);
             if (request && reply.type() == QDBusMessage::ReplyMessage)
                 notify(*request, reply);
         });
}

void FreedesktopNotificationCenter::notify(const NotificationRequest &request, const QDBusMessage &capabilitiesReply)
{
    const NotificationPresentation presentation = m_delegate ? m_delegate->willPresent() : NotificationPresentation{};
    if (!presentation.isBanner && !presentation.isInList)
        return;
    const QStringList capabilities = capabilitiesReply.arguments().value(0).toStringList();
    const QString body =
        capabilities.contains(QLatin1String("body-markup")) ? request.body.toHtmlEscaped() : request.body;
    const bool hasBody = capabilities.contains(QLatin1String("body"));
    QDBusMessage message = serverCall(QStringLiteral("Notify"));
    message << productName << replaced(request.identifier, capabilitiesReply.service()) << applicationIdentifier
            << (hasBody ? request.title : QStringLiteral("%1: %2").arg(request.title, request.body))
            << (hasBody ? body : QString()) << actions(request, capabilities) << hints(presentation) << serverDecides;
    call(message, showLimitMilliseconds, [this, request](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage)
            noteShown({reply.service(), reply.arguments().value(0).toUInt(), request.identifier, request.userInfo, {}});
    });
}

uint FreedesktopNotificationCenter::replaced(const QString &identifier, const QString &server) const
{
    // One that was started anew counts from the beginning: the number may be somebody else's notification by now.
    const auto same = std::ranges::find_if(
        m_shown, [&](const Shown &shown) { return shown.identifier == identifier && shown.server == server; });
    return same == m_shown.end() ? 0 : same->id;
}

void FreedesktopNotificationCenter::noteShown(const Shown &shown)
{
    std::erase_if(m_shown, [&](const Shown &other) {
        return other.identifier == shown.identifier || (other.id == shown.id && other.server == shown.server);
    });
    if (m_shown.size() == mostShown)
        m_shown.erase(m_shown.begin());
    m_shown.push_back(shown);
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

void FreedesktopNotificationCenter::call(const QDBusMessage &message, int limitMilliseconds, const OnReply &onReply)
{
    // A call over no bus never finishes.
    if (!m_bus.isConnected())
        return onReply(QDBusMessage());
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, limitMilliseconds), this);
    const auto finish = [this, watcher, onReply] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() != QDBusMessage::ReplyMessage)
            m_logger.info(QStringLiteral("a notification was not shown: ") + reply.errorMessage());
        onReply(reply);
    };
    // The watcher takes a turn more to tell of an answer that is there already: later ones and signals would overtake
    // it.
    if (watcher->isFinished())
        QMetaObject::invokeMethod(watcher, finish, Qt::QueuedConnection);
    else
        connect(watcher, &QDBusPendingCallWatcher::finished, this, finish);
}

std::vector<FreedesktopNotificationCenter::Shown>::iterator
FreedesktopNotificationCenter::find(const QDBusMessage &signal)
{
    const uint id = signal.arguments().value(0).toUInt();
    return std::ranges::find_if(m_shown,
                                [&](const Shown &shown) { return shown.id == id && shown.server == signal.service(); });
}

void FreedesktopNotificationCenter::respond(const QString &action, const QMap<QString, QString> &userInfo)
{
    if (m_delegate)
        m_delegate->didReceive({action, userInfo});
}

void FreedesktopNotificationCenter::offerActivation(const QByteArray &token)
{
    if (token.isEmpty())
        return;
    // The window that asks to be activated next hands it to the compositor. Left there it would be refused later, and
    // programs started from here would inherit it.
    qputenv(activationTokenVariable, token);
    m_offeredActivation = m_runLoop.after(activationOffer, [] { qunsetenv(activationTokenVariable); });
}

void FreedesktopNotificationCenter::takeActivationToken(const QDBusMessage &signal)
{
    if (const auto found = find(signal); found != m_shown.end())
        found->activationToken = signal.arguments().value(1).toString().toUtf8();
}

void FreedesktopNotificationCenter::takeAction(const QDBusMessage &signal)
{
    const auto found = find(signal);
    if (found == m_shown.end())
        return;
    const QString action = signal.arguments().value(1).toString();
    if (action == defaultActionIdentifier)
        offerActivation(found->activationToken);
    respond(action, QMap(found->userInfo));
}

void FreedesktopNotificationCenter::takeClosing(const QDBusMessage &signal)
{
    const auto found = find(signal);
    if (found == m_shown.end())
        return;
    const auto userInfo = found->userInfo;
    m_shown.erase(found);
    if (signal.arguments().value(1).toUInt() == dismissedByUser)
        respond(QLatin1String(dismissActionIdentifier), userInfo);
}

}
