#include "Recording/InFlightSessionMarker.h"

#include "Foundation/JsonFields.h"

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

void put(Json &object, const char *key, const std::optional<Date> &date)
{
    if (date)
        object[key] = secondsSince1970(*date);
}

void take(const Json &object, const char *key, std::optional<Date> &date)
{
    std::optional<double> seconds;
    readJsonField(object, key, seconds);
    date = seconds ? std::optional(dateFromSeconds(*seconds)) : std::nullopt;
}

}

QByteArray encoded(const InFlightSessionMarker &marker)
{
    Json object{{"phase", marker.phase.toStdString()},
                {"startedAt", secondsSince1970(marker.startedAt)},
                {"plannedDurationSeconds", marker.plannedDurationSeconds},
                {"cycleIndex", marker.cycleIndex}};
    if (marker.pausedSeconds)
        object["pausedSeconds"] = *marker.pausedSeconds;
    put(object, "pausedAt", marker.pausedAt);
    put(object, "reachedPlanAt", marker.reachedPlanAt);
    put(object, "lastActiveAt", marker.lastActiveAt);
    return QByteArray::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::optional<InFlightSessionMarker> decodedMarker(const QByteArray &json)
{
    const Json object = Json::parse(json.begin(), json.end(), nullptr, false);
    try {
        InFlightSessionMarker marker;
        double startedAt = 0;
        readJsonField(object, "phase", marker.phase);
        readJsonField(object, "startedAt", startedAt);
        readJsonField(object, "plannedDurationSeconds", marker.plannedDurationSeconds);
        readJsonField(object, "cycleIndex", marker.cycleIndex);
        readJsonField(object, "pausedSeconds", marker.pausedSeconds);
        take(object, "pausedAt", marker.pausedAt);
        take(object, "reachedPlanAt", marker.reachedPlanAt);
        take(object, "lastActiveAt", marker.lastActiveAt);
        marker.startedAt = dateFromSeconds(startedAt);
        return marker;
    } catch (const JsonFieldError &) {
        return std::nullopt;
    }
}

}
