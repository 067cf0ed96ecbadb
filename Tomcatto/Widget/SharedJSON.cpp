#include "Widget/SharedJSON.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace tomcatto::SharedJSON {

namespace {

using Json = nlohmann::ordered_json;

Json toJson(WidgetPhase phase)
{
    return rawValue(phase).toStdString();
}

Json toJson(Date date)
{
    return toIso8601(date).toStdString();
}

/// A member of the object; throws where it is missing or of another type, for `decode` to catch.
template<typename T>
T member(const Json &object, const char *name)
{
    const auto found = object.find(name);
    bool isRight = found != object.end();
    if constexpr (std::is_same_v<T, bool>)
        isRight = isRight && found->is_boolean();
    else if constexpr (std::is_same_v<T, qint64>)
        isRight = isRight && found->is_number_integer();
    else
        isRight = isRight && found->is_string();
    if (!isRight)
        throw std::invalid_argument(name);
    return found->template get<T>();
}

WidgetPhase phaseMember(const Json &object, const char *name)
{
    const auto phase = widgetPhaseFromRawValue(QString::fromStdString(member<std::string>(object, name)));
    return phase ? *phase : throw std::invalid_argument(name);
}

Date dateMember(const Json &object, const char *name)
{
    const auto text = QString::fromStdString(member<std::string>(object, name));
    const QDateTime instant = QDateTime::fromString(text, Qt::ISODate);
    return instant.isValid() ? toDate(instant) : throw std::invalid_argument(name);
}

std::optional<Date> optionalDate(const Json &object, const char *name)
{
    return object.contains(name) ? std::optional(dateMember(object, name)) : std::nullopt;
}

WidgetSnapshot snapshotOf(const Json &object)
{
    return {
        .phase = phaseMember(object, "phase"),
        .isPaused = member<bool>(object, "isPaused"),
        .isOverflowing = member<bool>(object, "isOverflowing"),
        .isPending = member<bool>(object, "isPending"),
        .phaseEndsAt = optionalDate(object, "phaseEndsAt"),
        .overflowStartedAt = optionalDate(object, "overflowStartedAt"),
        .staticSeconds = member<qint64>(object, "staticSeconds"),
        .nextPhase = phaseMember(object, "nextPhase"),
        .cycleIndex = member<qint64>(object, "cycleIndex"),
        .cyclesPerSet = member<qint64>(object, "cyclesPerSet"),
        .todayCompleted = member<qint64>(object, "todayCompleted"),
        .todayFocusMinutes = member<qint64>(object, "todayFocusMinutes"),
        .dailyGoal = member<qint64>(object, "dailyGoal"),
        .streak = member<qint64>(object, "streak"),
        .validUntil = dateMember(object, "validUntil"),
    };
}

}

QByteArray encode(const WidgetSnapshot &snapshot)
{
    Json object;
    object["phase"] = toJson(snapshot.phase);
    object["isPaused"] = snapshot.isPaused;
    object["isOverflowing"] = snapshot.isOverflowing;
    object["isPending"] = snapshot.isPending;
    if (snapshot.phaseEndsAt)
        object["phaseEndsAt"] = toJson(*snapshot.phaseEndsAt);
    if (snapshot.overflowStartedAt)
        object["overflowStartedAt"] = toJson(*snapshot.overflowStartedAt);
    object["staticSeconds"] = snapshot.staticSeconds;
    object["nextPhase"] = toJson(snapshot.nextPhase);
    object["cycleIndex"] = snapshot.cycleIndex;
    object["cyclesPerSet"] = snapshot.cyclesPerSet;
    object["todayCompleted"] = snapshot.todayCompleted;
    object["todayFocusMinutes"] = snapshot.todayFocusMinutes;
    object["dailyGoal"] = snapshot.dailyGoal;
    object["streak"] = snapshot.streak;
    object["validUntil"] = toJson(snapshot.validUntil);
    return QByteArray::fromStdString(object.dump());
}

std::expected<WidgetSnapshot, QString> decode(const QByteArray &text)
{
    const Json object = Json::parse(text.begin(), text.end(), nullptr, false);
    if (!object.is_object())
        return std::unexpected(QStringLiteral("not a JSON object"));
    try {
        return snapshotOf(object);
    } catch (const std::invalid_argument &fault) {
        return std::unexpected(QStringLiteral("%1 is missing or wrong").arg(QLatin1String(fault.what())));
    }
}

}
