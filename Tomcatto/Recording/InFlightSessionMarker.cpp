#include "Recording/InFlightSessionMarker.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

void put(Json &object, const char *key, const std::optional<Date> &date)
{
    if (date)
        object[key] = secondsSince1970(*date);
}

/// Whether the value is a whole number of 64 bits with a sign; greater ones would come back negative.
bool isWholeNumber(const Json &value)
{
    return value.is_number_integer() &&
           (!value.is_number_unsigned() || std::in_range<qint64>(value.get<std::uint64_t>()));
}

/// Takes an optional field; false where it is there with another type. A null counts as absent.
bool take(const Json &object, const char *key, std::optional<Date> &date)
{
    const auto found = object.find(key);
    if (found == object.end() || found->is_null())
        return true;
    if (!found->is_number())
        return false;
    date = dateFromSeconds(found->get<double>());
    return true;
}

}

QByteArray encoded(const InFlightSessionMarker &marker)
{
    Json object;
    object["phase"] = marker.phase.toStdString();
    object["startedAt"] = secondsSince1970(marker.startedAt);
    object["plannedDurationSeconds"] = marker.plannedDurationSeconds;
    object["cycleIndex"] = marker.cycleIndex;
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
    if (!object.is_object() || !object.contains("phase") || !object["phase"].is_string() ||
        !object.contains("startedAt") || !object["startedAt"].is_number() ||
        !object.contains("plannedDurationSeconds") || !isWholeNumber(object["plannedDurationSeconds"]) ||
        !object.contains("cycleIndex") || !isWholeNumber(object["cycleIndex"]))
        return std::nullopt;
    InFlightSessionMarker marker;
    marker.phase = QString::fromStdString(object["phase"].get<std::string>());
    marker.startedAt = dateFromSeconds(object["startedAt"].get<double>());
    marker.plannedDurationSeconds = object["plannedDurationSeconds"].get<qint64>();
    marker.cycleIndex = object["cycleIndex"].get<qint64>();
    if (const auto paused = object.find("pausedSeconds"); paused != object.end() && !paused->is_null()) {
        if (!isWholeNumber(*paused))
            return std::nullopt;
        marker.pausedSeconds = paused->get<qint64>();
    }
    if (!take(object, "pausedAt", marker.pausedAt) || !take(object, "reachedPlanAt", marker.reachedPlanAt) ||
        !take(object, "lastActiveAt", marker.lastActiveAt))
        return std::nullopt;
    return marker;
}

}
