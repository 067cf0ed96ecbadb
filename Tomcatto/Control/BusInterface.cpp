#include "Control/BusInterface.h"

#include "Foundation/EnumTexts.h"

#include <algorithm>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

/// What a method returns of its command's reply.
enum class Returns { nothing, message, result, listOfMaps };

struct Method
{
    const char *name;
    const char *command;
    /// The command's own "action"; null where it has none.
    const char *action = nullptr;
    /// Names of the arguments, parted by spaces.
    const char *parameters = "";
    /// A letter for each of them: `s` is a text, `x` a whole number.
    const char *types = "";
    Returns returns = Returns::nothing;
};

constexpr Method methods[] = {
    {.name = "Start", .command = "start", .returns = Returns::message},
    {.name = "Pause", .command = "pause", .returns = Returns::message},
    {.name = "Resume", .command = "resume", .returns = Returns::message},
    {.name = "Toggle", .command = "toggle", .returns = Returns::message},
    {.name = "Skip", .command = "skip", .returns = Returns::message},
    {.name = "TakeBreak", .command = "take-break", .returns = Returns::message},
    {.name = "Extend", .command = "extend", .returns = Returns::message},
    {.name = "Reset", .command = "reset", .returns = Returns::message},
    {.name = "Quit", .command = "quit"},
    {.name = "ShowPanel", .command = "panel"},
    {.name = "ShowWindow", .command = "window", .parameters = "page", .types = "s"},
    {.name = "ApplyPreset", .command = "preset", .parameters = "name", .types = "s"},
    {.name = "ListSettings", .command = "settings", .returns = Returns::result},
    {.name = "GetSetting", .command = "settings", .parameters = "key", .types = "s", .returns = Returns::result},
    {.name = "SetSetting", .command = "settings", .parameters = "key value", .types = "ss"},
    {.name = "GetStatistics", .command = "stats", .parameters = "range", .types = "s", .returns = Returns::result},
    {.name = "AddPhase",
     .command = "history",
     .action = "add",
     .parameters = "start minutes",
     .types = "sx",
     .returns = Returns::message},
    {.name = "RemovePhase", .command = "history", .action = "remove", .parameters = "id", .types = "s"},
    {.name = "ListVideos", .command = "videos", .action = "list", .returns = Returns::listOfMaps},
    {.name = "AddVideo",
     .command = "videos",
     .action = "add",
     .parameters = "path",
     .types = "s",
     .returns = Returns::message},
    {.name = "RemoveVideo", .command = "videos", .action = "remove", .parameters = "id", .types = "s"},
    {.name = "SelectVideo", .command = "videos", .action = "select", .parameters = "id", .types = "s"},
    {.name = "DeselectVideo", .command = "videos", .action = "deselect", .parameters = "id", .types = "s"},
    {.name = "PreviewVideo", .command = "preview", .parameters = "id", .types = "s"},
};

/// What changes with the time alone; announcing it would wake the bus and everyone who listens each second.
const QStringList ticking{QStringLiteral("RemainingSeconds"), QStringLiteral("OverflowSeconds"),
                          QStringLiteral("Title")};

bool fits(const QVariantList &arguments, std::string_view types)
{
    return std::ranges::equal(arguments, types, [](const QVariant &argument, char type) {
        return argument.typeId() == (type == 'x' ? QMetaType::LongLong : QMetaType::QString);
    });
}

Json commandArguments(const Method &method, const QVariantList &arguments)
{
    Json json = Json::object();
    if (method.action)
        json["action"] = method.action;
    const QStringList names = QString::fromLatin1(method.parameters).split(u' ', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < names.size(); ++i)
        json[names[i].toStdString()] = arguments[i].toString().toStdString();
    return json;
}

QVariant variant(const Json &json);

QVariantMap variantMap(const Json &object)
{
    QVariantMap map;
    for (const auto &[key, value] : object.items())
        map.insert(QString::fromStdString(key), variant(value));
    return map;
}

template<typename List>
List variantList(const Json &array, auto convert)
{
    List list;
    for (const Json &element : array)
        list.append(convert(element));
    return list;
}

QVariant variant(const Json &json)
{
    if (json.is_object())
        return variantMap(json);
    if (json.is_array())
        return variantList<QVariantList>(json, variant);
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number_integer())
        return json.get<qlonglong>();
    return json.is_number() ? QVariant(json.get<double>())
                            : QVariant(QString::fromStdString(json.is_string() ? json.get<std::string>() : ""));
}

QVariantList returned(Returns returns, const ControlReply &reply)
{
    switch (returns) {
    case Returns::nothing:
        return {};
    case Returns::message:
        return {reply.message};
    case Returns::result:
        return {variant(reply.result)};
    case Returns::listOfMaps:
        return {QVariant::fromValue(variantList<QList<QVariantMap>>(reply.result, variantMap))};
    }
    return {};
}

std::optional<BusProblem> problemOf(ExitStatus status)
{
    switch (status) {
    case ExitStatus::done:
        return std::nullopt;
    case ExitStatus::notApplicable:
        return BusProblem::notApplicable;
    case ExitStatus::usage:
        return BusProblem::badValue;
    case ExitStatus::notRunning:
        return BusProblem::ending;
    case ExitStatus::failed:
        return BusProblem::failed;
    }
    return BusProblem::failed;
}

BusAnswer answerOf(const Method &method, const ControlReply &reply)
{
    const auto problem = problemOf(reply.status);
    return problem ? BusAnswer{problem, reply.message, {}}
                   : BusAnswer{std::nullopt, {}, returned(method.returns, reply)};
}

/// The status under the names that properties have.
QVariantMap propertiesOf(const TimerStatus &status)
{
    QVariantMap properties;
    const QVariantMap fields = variantMap(toJson(status));
    for (auto field = fields.begin(); field != fields.end(); ++field)
        properties.insert(field.key().at(0).toUpper() + field.key().mid(1), *field);
    return properties;
}

}

BusInterface::BusInterface(MessageBus &bus, const CommandTable &commands, const StatusSource &status,
                           const PomodoroStateMachine &machine, std::function<bool()> isEnding)
    : m_bus(bus)
    , m_commands(commands)
    , m_status(status)
    , m_machine(machine)
    , m_isEnding(std::move(isEnding))
    , m_announced(BusInterface::properties())
{
    connect(&machine, &PomodoroStateMachine::transitioned, this, &BusInterface::announceTransition);
    connect(&status, &StatusSource::changed, this, &BusInterface::announceChange);
    m_bus.offer(*this);
}

BusInterface::~BusInterface()
{
    m_bus.withdraw();
}

void BusInterface::call(const QString &name, const QVariantList &arguments, const Answer &answer)
{
    const auto *const method =
        std::ranges::find(methods, name, [](const Method &each) { return QLatin1String(each.name); });
    if (method == std::end(methods))
        return answer({BusProblem::unknownMethod, QStringLiteral("There is no method \"%1\"").arg(name), {}});
    if (!fits(arguments, method->types))
        return answer({BusProblem::wrongArguments,
                       QStringLiteral("%1 takes \"%2\"").arg(name, QLatin1String(method->types)),
                       {}});
    if (m_isEnding())
        return answer({BusProblem::ending, QStringLiteral("Tomcatto is ending."), {}});
    m_commands.run(QLatin1String(method->command), commandArguments(*method, arguments),
                   [method, answer](const ControlReply &reply) { answer(answerOf(*method, reply)); });
}

QVariantMap BusInterface::properties() const
{
    return propertiesOf(m_status.status());
}

void BusInterface::announceChange(const TimerStatus &status)
{
    const QVariantMap before = std::exchange(m_announced, propertiesOf(status));
    QVariantMap changes;
    for (auto property = m_announced.begin(); property != m_announced.end(); ++property) {
        if (!ticking.contains(property.key()) && before.value(property.key()) != *property)
            changes.insert(property.key(), *property);
    }
    m_bus.announceChange(changes);
}

void BusInterface::announceTransition(const PhaseTransition &transition)
{
    m_bus.announce(QStringLiteral("PhaseChanged"),
                   {rawValue(transition.previous), rawValue(transition.current), rawValue(transition.reason),
                    m_machine.phaseToken(), transition.cycleIndex, transition.previousPlannedSeconds,
                    transition.previousReachedPlan});
}

}
