#include "Platform/Freedesktop/SessionMessageBus.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Freedesktop/BusCalls.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingReply>

namespace tomcatto {

namespace {

const QString objectPath = QStringLiteral("/studio/quillbay/Tomcatto1");
const QString interfaceName = QStringLiteral("studio.quillbay.Tomcatto1");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
/// Of one caller. More is not somebody who waits for answers.
constexpr std::size_t mostWaiting = 256;
/// For how long calls are answered before everything else gets its turn.
constexpr std::chrono::milliseconds turnLength{4};
/// Such as calls from somebody who does not wait for answers take, with what follows from them.
constexpr std::chrono::seconds rushLength{5};
/// How long the end waits for the bus.
constexpr std::chrono::milliseconds farewell{500};

QString errorName(BusProblem problem)
{
    const QString ours = interfaceName + QStringLiteral(".Error.");
    switch (problem) {
    case BusProblem::unknownMethod:
        return QDBusError::errorString(QDBusError::UnknownMethod);
    case BusProblem::wrongArguments:
        return QDBusError::errorString(QDBusError::InvalidArgs);
    case BusProblem::notApplicable:
        return ours + QStringLiteral("NotApplicable");
    case BusProblem::badValue:
        return ours + QStringLiteral("BadValue");
    case BusProblem::failed:
        return ours + QStringLiteral("Failed");
    case BusProblem::ending:
        break;
    }
    return ours + QStringLiteral("Ending");
}

bool isOurs(const QString &interface)
{
    return interface.isEmpty() || interface == interfaceName;
}

}

SessionMessageBus::SessionMessageBus(const QDBusConnection &sessionBus, MainRunLoop &runLoop,
                                     std::function<void()> afterRush)
    : m_bus(sessionBus)
    , m_runLoop(runLoop)
    , m_afterRush(std::move(afterRush))
{
    qDBusRegisterMetaType<QList<QVariantMap>>();
}

void SessionMessageBus::offer(BusObject &object)
{
    m_object = &object;
    if (!m_bus.isConnected() || !m_bus.registerVirtualObject(objectPath, this)) {
        m_logger.info(QStringLiteral("other programs cannot reach Tomcatto: ") + m_bus.lastError().message());
        return;
    }
    // Behind another owner it waits in the bus's queue, and gets the name when that one goes.
    const auto call = m_bus.asyncCall(busCall(QStringLiteral("RequestName"), {applicationIdentifier, 0U}));
    whenAnswered(call, this, [this](const QDBusPendingReply<uint> &reply) {
        constexpr uint primaryOwner = 1;
        if (reply.isError() || reply.value() != primaryOwner)
            m_logger.info(QStringLiteral("another program has the name on the session bus ") + reply.error().message());
    });
}

void SessionMessageBus::withdraw()
{
    m_object = nullptr;
    if (!m_bus.isConnected())
        return;
    // The bus keeps the order: once it answers this, it has what was answered to others.
    m_bus.call(busCall(QStringLiteral("ReleaseName"), {applicationIdentifier}), QDBus::Block, farewell.count());
    QCoreApplication::sendPostedEvents(this);
    while (!m_calls.empty())
        answerNext();
    m_bus.unregisterObject(objectPath);
}

void SessionMessageBus::announceChange(const QVariantMap &properties)
{
    QDBusMessage message =
        QDBusMessage::createSignal(objectPath, propertiesInterface, QStringLiteral("PropertiesChanged"));
    message << interfaceName << properties << QStringList();
    m_bus.send(message);
}

void SessionMessageBus::announce(const QString &signal, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createSignal(objectPath, interfaceName, signal);
    message.setArguments(arguments);
    m_bus.send(message);
}

QString SessionMessageBus::introspect(const QString & /*path*/) const
{
    QFile file(QStringLiteral(":/tomcatto/studio.quillbay.Tomcatto1.xml"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The toolkit puts it between what every object has.
    const QString text = QString::fromUtf8(file.readAll());
    const auto begin = text.indexOf(QLatin1String("<interface"));
    return text.mid(begin, text.indexOf(QLatin1String("</node>")) - begin);
}

bool SessionMessageBus::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/)
{
    if (message.member() == QLatin1String("Introspect"))
        return false;
    auto &calls = m_calls[message.service()];
    if (calls.size() >= mostWaiting) {
        noteRush();
        reply(message, message.createErrorReply(QDBusError::LimitsExceeded,
                                                QStringLiteral("Too many of your calls wait for an answer.")));
        return true;
    }
    calls.push_back(message);
    if (!m_turn.isActive())
        m_turn = m_runLoop.after(std::chrono::milliseconds{0}, [this] { answerSome(); });
    return true;
}

void SessionMessageBus::noteRush()
{
    if (m_afterRush && !m_rush.isActive())
        m_rush = m_runLoop.after(rushLength, [this] {
            m_afterRush();
            m_rush.cancel();
        });
}

void SessionMessageBus::answerSome()
{
    const QDeadlineTimer until(turnLength);
    while (!m_calls.empty() && !until.hasExpired())
        answerNext();
    if (m_calls.empty())
        m_turn.cancel();
    else
        m_turn = m_runLoop.after(std::chrono::milliseconds{0}, [this] { answerSome(); });
}

void SessionMessageBus::answerNext()
{
    auto turn = m_calls.upper_bound(m_lastCaller);
    if (turn == m_calls.end())
        turn = m_calls.begin();
    m_lastCaller = turn->first;
    const QDBusMessage message = turn->second.front();
    turn->second.pop_front();
    if (turn->second.empty())
        m_calls.erase(turn);
    answer(message);
}

void SessionMessageBus::answer(const QDBusMessage &message)
{
    if (!m_object)
        return refuse(message, BusProblem::ending, QStringLiteral("Tomcatto is ending."));
    if (message.interface() == propertiesInterface)
        return reply(message, propertiesReply(message));
    if (!isOurs(message.interface()))
        return reply(message, message.createErrorReply(QDBusError::UnknownInterface, message.interface()));
    m_object->call(message.member(), message.arguments(), [self = QPointer(this), message](const BusAnswer &answer) {
        if (!self)
            return;
        if (answer.problem)
            self->refuse(message, *answer.problem, answer.message);
        else
            self->reply(message, message.createReply(answer.values));
    });
}

QDBusMessage SessionMessageBus::propertiesReply(const QDBusMessage &message) const
{
    static const QMap<QString, QString> signatures{{QStringLiteral("Get"), QStringLiteral("ss")},
                                                   {QStringLiteral("GetAll"), QStringLiteral("s")},
                                                   {QStringLiteral("Set"), QStringLiteral("ssv")}};
    const QVariantList arguments = message.arguments();
    if (!signatures.contains(message.member()))
        return message.createErrorReply(QDBusError::UnknownMethod, message.member());
    if (message.signature() != signatures[message.member()])
        return message.createErrorReply(QDBusError::InvalidArgs, message.signature());
    if (!isOurs(arguments[0].toString()))
        return message.createErrorReply(QDBusError::UnknownInterface, arguments[0].toString());
    const QVariantMap properties = m_object->properties();
    if (message.member() == QLatin1String("GetAll"))
        return message.createReply(QVariant(properties));
    const auto property = properties.find(arguments[1].toString());
    if (property == properties.end())
        return message.createErrorReply(QDBusError::UnknownProperty, arguments[1].toString());
    if (message.member() == QLatin1String("Set"))
        return message.createErrorReply(QDBusError::PropertyReadOnly, property.key());
    return message.createReply(QVariant::fromValue(QDBusVariant(*property)));
}

void SessionMessageBus::refuse(const QDBusMessage &message, BusProblem problem, const QString &text)
{
    reply(message, message.createErrorReply(errorName(problem), text));
}

void SessionMessageBus::reply(const QDBusMessage &message, const QDBusMessage &reply)
{
    if (message.isReplyRequired())
        m_bus.send(reply);
}

}
