#include "Widget/SharedJSON.h"

#include "Foundation/JsonFields.h"

namespace tomcatto {

using Json = nlohmann::ordered_json;

static Json jsonValue(WidgetPhase phase)
{
    return rawValue(phase).toStdString();
}

static bool readJson(const Json &json, WidgetPhase &into)
{
    QString text;
    const auto phase = readJson(json, text) ? fromRawValue<WidgetPhase>(text) : std::nullopt;
    into = phase.value_or(WidgetPhase::idle);
    return phase.has_value();
}

static constexpr auto jsonFields(const WidgetSnapshot *)
{
    using Snapshot = WidgetSnapshot;
    return std::tuple(
        std::pair("phase", &Snapshot::phase), std::pair("isPaused", &Snapshot::isPaused),
        std::pair("isOverflowing", &Snapshot::isOverflowing), std::pair("isPending", &Snapshot::isPending),
        std::pair("phaseEndsAt", &Snapshot::phaseEndsAt), std::pair("overflowStartedAt", &Snapshot::overflowStartedAt),
        std::pair("staticSeconds", &Snapshot::staticSeconds), std::pair("nextPhase", &Snapshot::nextPhase),
        std::pair("cycleIndex", &Snapshot::cycleIndex), std::pair("cyclesPerSet", &Snapshot::cyclesPerSet),
        std::pair("todayCompleted", &Snapshot::todayCompleted),
        std::pair("todayFocusMinutes", &Snapshot::todayFocusMinutes), std::pair("dailyGoal", &Snapshot::dailyGoal),
        std::pair("streak", &Snapshot::streak), std::pair("validUntil", &Snapshot::validUntil));
}

QByteArray SharedJSON::encode(const WidgetSnapshot &snapshot)
{
    return QByteArray::fromStdString(jsonValue(snapshot).dump());
}

std::expected<WidgetSnapshot, QString> SharedJSON::decode(const QByteArray &text)
{
    const Json object = Json::parse(text.begin(), text.end(), nullptr, false);
    try {
        WidgetSnapshot snapshot;
        if (readJson(object, snapshot))
            return snapshot;
    } catch (const JsonFieldError &fault) {
        return std::unexpected(QString::fromUtf8(fault.what()));
    }
    return std::unexpected(QStringLiteral("not a JSON object"));
}

}
