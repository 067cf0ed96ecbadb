#include "Platform/Freedesktop/StatusNotifierTray.h"

#include "Platform/Freedesktop/BusCalls.h"

#include <chrono>
#include <limits>
#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingReply>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString menuPath = QStringLiteral("/MenuBar");
/// While a session starts, a tray may take long to answer. It is waited for, but no longer than this without a pill.
constexpr std::chrono::seconds decisionTime(2);
constexpr int noLimit = std::numeric_limits<int>::max();
constexpr auto exported = QDBusConnection::ExportScriptableContents;

QDBusMessage watcherCall(const QString &interface, const QString &method)
{
    QDBusMessage message = QDBusMessage::createMethodCall(watcherService, watcherPath, interface, method);
    message.setAutoStartService(false);
    return message;
}

/// Where a tray says that it was clicked; trays that do not know say 0, 0.
std::optional<QRect> clickedPlace(QPoint place)
{
    if (place.isNull())
        return {};
    // Some trays count in device pixels, others do not: the pointer, which has just clicked there, does both right.
    if (qGuiApp->devicePixelRatio() > 1)
        place = QCursor::pos();
    return QRect(place, QSize(0, 0));
}

}

StatusNotifierTray::StatusNotifierTray(const QDBusConnection &sessionBus)
    : m_bus(sessionBus)
    , m_name(QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid()))
    , m_menu([this](const TrayMenuCommand &command) {
        // The menu stands at the icon; before the first click on that, nothing else tells where it is.
        if (!m_place)
            m_place = QRect(QCursor::pos(), QSize(0, 0));
        Q_EMIT menuCommandChosen(command);
    })
    , m_item(menuPath)
{
    connect(&m_item, &StatusNotifierItem::activated, this, [this](QPoint place) {
        const auto clicked = clickedPlace(place);
        if (clicked)
            m_place = clicked;
        Q_EMIT activated(clicked);
    });
    connect(&m_item, &StatusNotifierItem::menuWanted, this, &StatusNotifierTray::menuWanted);
    if (!m_bus.isConnected() || !m_bus.registerObject(itemPath, &m_item, exported) ||
        !m_bus.registerObject(menuPath, &m_menu, exported)) {
        m_logger.info(QStringLiteral("no tray over the session bus: ") + m_bus.lastError().message());
        m_isDecided = true;
        return;
    }
    followOwner(m_bus, watcherService, this, [this](const QString &newOwner) { followWatcher(newOwner); });
    for (const char *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_bus.connect(watcherService, watcherPath, watcherService, QLatin1String(signal), this, SLOT(askForHost()));
    requestName();
    registerItem();
    askForHost();
    QTimer::singleShot(decisionTime, this, [this] {
        if (!m_isDecided)
            decide(false);
    });
}

StatusNotifierTray::~StatusNotifierTray()
{
    m_bus.unregisterObject(itemPath);
    m_bus.unregisterObject(menuPath);
    m_bus.send(busCall(QStringLiteral("ReleaseName"), {m_name}));
}

void StatusNotifierTray::setShown(bool /*isShown*/) {}

void StatusNotifierTray::show(const StatusItemPresentation &presentation)
{
    m_item.update({presentation.squareIcons.begin(), presentation.squareIcons.end()}, presentation.toolTip,
                  presentation.accessibleText);
}

void StatusNotifierTray::requestName()
{
    // The bus keeps the order of messages, so the name is there when the watcher hears of it.
    constexpr uint doNotQueue = 4;
    m_bus.send(busCall(QStringLiteral("RequestName"), {m_name, doNotQueue}));
}

void StatusNotifierTray::registerItem()
{
    QDBusMessage message = watcherCall(watcherService, QStringLiteral("RegisterStatusNotifierItem"));
    message << m_name;
    m_bus.send(message);
}

void StatusNotifierTray::followWatcher(const QString &newOwner)
{
    if (newOwner.isEmpty()) {
        ++m_question;
        decide(false);
        return;
    }
    registerItem();
    askForHost();
}

void StatusNotifierTray::askForHost()
{
    QDBusMessage message = watcherCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    whenAnswered(m_bus.asyncCall(message, noLimit), this,
                 [this, question = ++m_question](const QDBusPendingReply<QVariant> &reply) {
                     if (question == m_question)
                         decide(reply.isValid() && reply.value().toBool());
                 });
}

void StatusNotifierTray::decide(bool isHosted)
{
    if (m_isDecided && m_isHosted == isHosted)
        return;
    m_isDecided = true;
    m_isHosted = isHosted;
    m_place.reset();
    m_item.setHosted(isHosted);
    m_logger.debug(isHosted ? QStringLiteral("a tray shows the icon") : QStringLiteral("no tray shows the icon"));
    Q_EMIT hostChanged();
}

}
