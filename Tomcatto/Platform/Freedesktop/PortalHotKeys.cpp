#include "Platform/Freedesktop/PortalHotKeys.h"

#include "Platform/Freedesktop/BusCalls.h"
#include "Platform/Freedesktop/BusStructure.h"
#include "Platform/Freedesktop/PortalTriggers.h"

#include <algorithm>
#include <QtCore/QPointer>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>

namespace tomcatto {

/// A shortcut with what the portal knows of it: its identifier, and its properties by name.
struct PortalShortcut
{
    QString id;
    QVariantMap properties;

    static constexpr auto busMembers = std::tuple(&PortalShortcut::id, &PortalShortcut::properties);
};

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");
const QString sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
constexpr int refused = -1;

QDBusMessage call(const QString &object, const QString &interface, const QString &method,
                  const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, object, interface, method);
    message.setArguments(arguments);
    return message;
}

QString shortcutId(HotKeyIdentifier identifier)
{
    return QStringLiteral("shortcut%1").arg(identifier.id);
}

/// Portals give objects as paths or as texts.
QString pathOf(const QVariant &value)
{
    return value.canConvert<QDBusObjectPath>() && value.metaType() == QMetaType::fromType<QDBusObjectPath>()
               ? value.value<QDBusObjectPath>().path()
               : value.toString();
}

bool isSame(const HotKeyRequest &one, const HotKeyRequest &other)
{
    return one.identifier == other.identifier && one.keyCode == other.keyCode && one.modifiers == other.modifiers;
}

}

PortalHotKeys::PortalHotKeys(const QDBusConnection &sessionBus, PortalLimits limits)
    : m_bus(sessionBus)
    , m_limits(limits)
{
    if (!m_bus.isConnected())
        return;
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { refuse(QStringLiteral("it does not answer")); });
    m_bus.connect(service, QString(), requestInterface, QStringLiteral("Response"), this,
                  SLOT(responded(QDBusMessage)));
    m_bus.connect(service, path, shortcutsInterface, QStringLiteral("Activated"), this, SLOT(activated(QDBusMessage)));
    m_bus.connect(service, QString(), sessionInterface, QStringLiteral("Closed"), this,
                  SLOT(sessionClosed(QDBusMessage)));
    followOwner(m_bus, service, this, [this](const QString &newOwner) {
        forgetSession();
        setSupport(HotKeySupport::none);
        if (!newOwner.isEmpty())
            lookForPortal();
    });
    lookForPortal();
}

PortalHotKeys::~PortalHotKeys()
{
    endSession();
}

void PortalHotKeys::lookForPortal()
{
    const QDBusMessage message = call(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                      {shortcutsInterface, QStringLiteral("version")});
    whenAnswered(begun(message), this, [this](const QDBusPendingCall &call) {
        if (call.isError())
            return m_logger.debug(QStringLiteral("this desktop offers no shortcuts from anywhere: ") +
                                  call.error().message());
        setSupport(HotKeySupport::notAsked);
        adjust();
    });
}

HotKeySupport PortalHotKeys::support() const
{
    return m_support;
}

Cancellable PortalHotKeys::onSupportChanged(std::function<void()> handler)
{
    return m_supportHandlers.add(std::move(handler));
}

void PortalHotKeys::setSupport(HotKeySupport support)
{
    if (std::exchange(m_support, support) != support)
        m_supportHandlers.call();
}

std::expected<Cancellable, int> PortalHotKeys::registerHotKey(const HotKeyRequest &request)
{
    if (std::ranges::any_of(m_wanted, [&](const HotKeyRequest &each) {
            return each.keyCode == request.keyCode && each.modifiers == request.modifiers;
        }))
        return std::unexpected(refused);
    m_wanted.push_back(request);
    adjustLater();
    return Cancellable([self = QPointer(this), identifier = request.identifier] {
        if (self)
            self->unregister(identifier);
    });
}

void PortalHotKeys::unregister(HotKeyIdentifier identifier)
{
    std::erase_if(m_wanted, [&](const HotKeyRequest &each) { return each.identifier == identifier; });
    adjustLater();
}

void PortalHotKeys::adjustLater()
{
    // Changes come several at a time.
    if (!std::exchange(m_isDue, true))
        QMetaObject::invokeMethod(this, &PortalHotKeys::adjust, Qt::QueuedConnection);
}

void PortalHotKeys::adjust()
{
    m_isDue = false;
    if (m_support == HotKeySupport::none || std::ranges::equal(m_wanted, m_asked, isSame))
        return;
    endSession();
    m_asked = m_wanted;
    if (!m_asked.empty())
        createSession();
}

void PortalHotKeys::createSession()
{
    m_isBinding = false;
    const QString name = QStringLiteral("tomcatto%1").arg(m_number + 1);
    ask(call(path, shortcutsInterface, QStringLiteral("CreateSession"),
             {QVariantMap{{QStringLiteral("session_handle_token"), name}, {QStringLiteral("handle_token"), name}}}),
        m_limits.answer);
}

void PortalHotKeys::bind()
{
    m_isBinding = true;
    QList<PortalShortcut> shortcuts;
    for (const HotKeyRequest &request : m_asked) {
        QVariantMap properties{{QStringLiteral("description"), request.description}};
        if (const QString trigger = portalTrigger(request.keyCode, request.modifiers); !trigger.isEmpty())
            properties.insert(QStringLiteral("preferred_trigger"), trigger);
        shortcuts.append({shortcutId(request.identifier), properties});
    }
    const QString name = QStringLiteral("tomcatto%1").arg(m_number + 1);
    ask(call(path, shortcutsInterface, QStringLiteral("BindShortcuts"),
             {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString(),
              QVariantMap{{QStringLiteral("handle_token"), name}}}),
        m_limits.decision);
}

void PortalHotKeys::ask(const QDBusMessage &message, std::chrono::milliseconds limit)
{
    const int number = ++m_number;
    // The portal names the request by who asks and the name it was given, so its answer cannot be missed.
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_request = path + QStringLiteral("/request/%1/tomcatto%2").arg(sender).arg(number);
    m_limit.start(limit);
    whenAnswered(begun(message), this, [this, number](const QDBusPendingCall &call) {
        if (number == m_number && !m_request.isEmpty() && call.isError())
            refuse(call.error().message());
    });
}

void PortalHotKeys::responded(const QDBusMessage &signal)
{
    if (m_request.isEmpty() || signal.path() != m_request)
        return;
    m_request.clear();
    m_limit.stop();
    // 0 where it was done, 1 where the user said no.
    const uint outcome = signal.arguments().value(0).toUInt();
    const auto results = qdbus_cast<QVariantMap>(signal.arguments().value(1));
    if (outcome != 0)
        return refuse(QStringLiteral("it ended with %1").arg(outcome));
    if (m_isBinding)
        return noteBound(results);
    m_session = pathOf(results.value(QStringLiteral("session_handle")));
    bind();
}

void PortalHotKeys::noteBound(const QVariantMap &results)
{
    const auto bound = qdbus_cast<QList<PortalShortcut>>(results.value(QStringLiteral("shortcuts")));
    setSupport(HotKeySupport::works);
    for (const HotKeyRequest &request : m_asked)
        tell(request.identifier, std::ranges::any_of(bound, [id = shortcutId(request.identifier)](const auto &each) {
                 return each.id == id;
             }));
}

void PortalHotKeys::activated(const QDBusMessage &signal)
{
    if (m_session.isEmpty() || pathOf(signal.arguments().value(0)) != m_session || !m_delegate)
        return;
    const QString id = signal.arguments().value(1).toString();
    const auto pressed = std::ranges::find_if(
        m_asked, [&](const HotKeyRequest &request) { return shortcutId(request.identifier) == id; });
    if (pressed != m_asked.end())
        m_delegate->hotKeyPressed(pressed->identifier);
}

void PortalHotKeys::sessionClosed(const QDBusMessage &signal)
{
    if (!m_session.isEmpty() && signal.path() == m_session)
        refuse(QStringLiteral("it has ended the session"));
}

void PortalHotKeys::refuse(const QString &reason)
{
    m_logger.info(QStringLiteral("the portal gives no shortcuts: ") + reason);
    const std::vector<HotKeyRequest> asked = m_asked;
    // Without a session the next change asks again.
    endSession();
    for (const HotKeyRequest &request : asked)
        tell(request.identifier, false);
}

void PortalHotKeys::endSession()
{
    if (!m_request.isEmpty())
        close(m_request, requestInterface);
    if (!m_session.isEmpty())
        close(m_session, sessionInterface);
    forgetSession();
    if (m_support == HotKeySupport::works)
        setSupport(HotKeySupport::notAsked);
}

void PortalHotKeys::forgetSession()
{
    m_limit.stop();
    m_request.clear();
    m_session.clear();
    m_asked.clear();
}

void PortalHotKeys::close(const QString &object, const QString &interface)
{
    m_bus.send(call(object, interface, QStringLiteral("Close")));
}

void PortalHotKeys::tell(HotKeyIdentifier identifier, bool isAvailable)
{
    if (m_delegate)
        m_delegate->hotKeyAvailabilityChanged(identifier, isAvailable);
}

}
