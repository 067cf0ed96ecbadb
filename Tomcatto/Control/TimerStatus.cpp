#include "Control/TimerStatus.h"

#include "Control/ControlMessage.h"
#include "Foundation/JsonFields.h"

namespace tomcatto {

/// All but the phase and the reason, which stand before and after them as texts of their own.
static constexpr auto jsonFields(const TimerStatus *)
{
    using Status = TimerStatus;
    return std::tuple(
        std::pair("isPaused", &Status::isPaused), std::pair("isPending", &Status::isPending),
        std::pair("isOverflowing", &Status::isOverflowing), std::pair("remainingSeconds", &Status::remainingSeconds),
        std::pair("overflowSeconds", &Status::overflowSeconds), std::pair("plannedSeconds", &Status::plannedSeconds),
        std::pair("cycleIndex", &Status::cycleIndex), std::pair("cyclesPerSet", &Status::cyclesPerSet),
        std::pair("phaseToken", &Status::phaseToken), std::pair("title", &Status::title),
        std::pair("todayCompleted", &Status::todayCompleted),
        std::pair("todayFocusMinutes", &Status::todayFocusMinutes), std::pair("dailyGoal", &Status::dailyGoal),
        std::pair("streak", &Status::streak));
}

namespace {

using Json = nlohmann::ordered_json;

QString phaseName(const TimerStatus &status)
{
    constexpr std::array names{"idle", "work", "short break", "long break"};
    return status.isOverflowing ? QStringLiteral("overtime") : textOf(names, status.phase);
}

QString stateName(const TimerStatus &status)
{
    constexpr std::array waits{"until the call is over", "while something is full screen", "for a rest in typing"};
    if (status.heldBy)
        return QStringLiteral(" (ready, waits %1)").arg(textOf(waits, *status.heldBy));
    if (status.isPending)
        return QStringLiteral(" (ready)");
    return status.isPaused ? QStringLiteral(" (paused)") : QString();
}

QString sentence(const TimerStatus &status)
{
    return QStringLiteral("%1 %2%3, round %4 of %5, %6 of %7 today")
        .arg(status.title, phaseName(status), stateName(status))
        .arg(status.cycleIndex + 1)
        .arg(status.cyclesPerSet)
        .arg(status.todayCompleted)
        .arg(status.dailyGoal);
}

QString waybarLine(const TimerStatus &status)
{
    Json classes = Json::array({rawValue(status.phase).toStdString()});
    if (status.isOverflowing)
        classes.push_back("overtime");
    if (status.isPending)
        classes.push_back("pending");
    else if (status.isPaused)
        classes.push_back("paused");
    const double total = static_cast<double>(std::max<qint64>(status.plannedSeconds, 1));
    const double passed = status.isOverflowing ? total : total - static_cast<double>(status.remainingSeconds);
    Json object;
    object["text"] = status.title.toStdString();
    object["alt"] = rawValue(status.phase).toStdString();
    object["tooltip"] = sentence(status).toStdString();
    object["class"] = classes;
    object["percentage"] = status.phase == PomodoroPhase::idle ? 0 : static_cast<int>(100 * passed / total);
    return QString::fromStdString(object.dump());
}

}

Json toJson(const TimerStatus &status)
{
    Json object{{"phase", rawValue(status.phase).toStdString()}};
    addJsonFields(object, status);
    object["heldBy"] = status.heldBy ? Json(rawValue(*status.heldBy).toStdString()) : Json();
    return object;
}

std::expected<TimerStatus, QString> timerStatusFromJson(const Json &object)
{
    try {
        QString phaseText;
        readJsonField(object, "phase", phaseText);
        const auto phase = fromRawValue<PomodoroPhase>(phaseText);
        if (!phase)
            return std::unexpected(QStringLiteral("Tomcatto's status has an unknown phase"));
        TimerStatus status;
        status.phase = *phase;
        readJson(object, status);
        // An application of a later version may know other reasons.
        status.heldBy = fromRawValue<HoldReason>(textArgument(object, "heldBy"));
        return status;
    } catch (const JsonFieldError &error) {
        return std::unexpected(QStringLiteral("Tomcatto's status cannot be read: ") + QString::fromUtf8(error.what()));
    }
}

QString rendered(const TimerStatus &status, StatusFormat format)
{
    switch (format) {
    case StatusFormat::text:
        return sentence(status);
    case StatusFormat::json:
        return QString::fromStdString(toJson(status).dump());
    case StatusFormat::waybar:
        return waybarLine(status);
    }
    return {};
}

bool differByMoreThanTick(const TimerStatus &a, const TimerStatus &b)
{
    TimerStatus ticked = a;
    ticked.remainingSeconds = b.remainingSeconds;
    ticked.overflowSeconds = b.overflowSeconds;
    ticked.title = b.title;
    return ticked != b;
}

}
