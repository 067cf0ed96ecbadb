#include "Control/ControlMessage.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

QByteArray line(const Json &object)
{
    return QByteArray::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace)) + '\n';
}

// Copying a document recurses once a level, so a sender may not choose the depth.
constexpr int deepestNesting = 16;

/// The document, or a discarded value.
Json parsed(const QByteArray &text)
{
    bool isTooDeep = false;
    const auto limitDepth = [&isTooDeep](int depth, Json::parse_event_t, const Json &) {
        isTooDeep = isTooDeep || depth > deepestNesting;
        return !isTooDeep;
    };
    Json json = Json::parse(text.begin(), text.end(), limitDepth, false);
    return isTooDeep ? Json(Json::value_t::discarded) : json;
}

}

ControlReply controlReply(ExitStatus status, QString message)
{
    return {status, std::move(message), {}};
}

ControlReply controlReply(const Refusal &refusal)
{
    switch (refusal.kind) {
    case Refusal::Kind::usage:
        return controlReply(ExitStatus::usage, refusal.text);
    case Refusal::Kind::notApplicable:
        return controlReply(ExitStatus::notApplicable, refusal.text);
    case Refusal::Kind::failed:
        break;
    }
    return controlReply(ExitStatus::failed, refusal.text);
}

QByteArray encoded(const ControlRequest &request)
{
    Json object;
    object["command"] = request.command.toStdString();
    if (!request.arguments.empty())
        object["arguments"] = request.arguments;
    if (request.isFollowing)
        object["follow"] = true;
    if (request.wantsTicks)
        object["ticks"] = true;
    return line(object);
}

QByteArray encoded(const ControlReply &reply)
{
    Json object;
    object["status"] = static_cast<int>(reply.status);
    if (!reply.message.isEmpty())
        object["message"] = reply.message.toStdString();
    if (!reply.result.is_null())
        object["result"] = reply.result;
    return line(object);
}

QString textArgument(const Json &arguments, const char *name)
{
    const auto found = arguments.find(name);
    return found != arguments.end() && found->is_string() ? QString::fromStdString(found->get<std::string>())
                                                          : QString();
}

bool isWholeRequest(const QByteArray &bytes)
{
    return bytes.trimmed().endsWith('}') && Json::accept(bytes.begin(), bytes.end());
}

std::expected<ControlRequest, QString> decodedRequest(const QByteArray &text)
{
    const Json object = parsed(text);
    if (!object.is_object())
        return std::unexpected(QStringLiteral("A request is one JSON object in one line"));
    const auto command = object.find("command");
    if (command == object.end() || !command->is_string())
        return std::unexpected(QStringLiteral("A request names its \"command\" as a text"));
    ControlRequest request;
    request.command = QString::fromStdString(command->get<std::string>());
    if (const auto arguments = object.find("arguments"); arguments != object.end()) {
        if (!arguments->is_object())
            return std::unexpected(QStringLiteral("\"arguments\" must be an object"));
        request.arguments = *arguments;
    }
    for (const auto &[name, flag] :
         {std::pair{"follow", &request.isFollowing}, std::pair{"ticks", &request.wantsTicks}}) {
        const auto found = object.find(name);
        if (found == object.end())
            continue;
        if (!found->is_boolean())
            return std::unexpected(QStringLiteral("\"%1\" must be true or false").arg(QLatin1String(name)));
        *flag = found->get<bool>();
    }
    return request;
}

std::expected<ControlReply, QString> decodedReply(const QByteArray &text)
{
    const Json object = parsed(text);
    if (!object.is_object() || !object.contains("status") || !object["status"].is_number_integer())
        return std::unexpected(QStringLiteral("Tomcatto's answer cannot be read"));
    const int status = object["status"].get<int>();
    if (status < static_cast<int>(ExitStatus::done) || status > static_cast<int>(ExitStatus::failed))
        return std::unexpected(QStringLiteral("Tomcatto's answer has an unknown status"));
    ControlReply reply;
    reply.status = static_cast<ExitStatus>(status);
    if (const auto message = object.find("message"); message != object.end() && message->is_string())
        reply.message = QString::fromStdString(message->get<std::string>());
    if (const auto result = object.find("result"); result != object.end())
        reply.result = *result;
    return reply;
}

}
