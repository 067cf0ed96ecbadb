#include "Control/TimerStatus.h"

namespace tomcatto {

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
    Json object;
    object["phase"] = rawValue(status.phase).toStdString();
    object["isPaused"] = status.isPaused;
    object["isPending"] = status.isPending;
    object["isOverflowing"] = status.isOverflowing;
    object["remainingSeconds"] = status.remainingSeconds;
    object["overflowSeconds"] = status.overflowSeconds;
    object["plannedSeconds"] = status.plannedSeconds;
    object["cycleIndex"] = status.cycleIndex;
    object["cyclesPerSet"] = status.cyclesPerSet;
    object["phaseToken"] = status.phaseToken.toStdString();
    object["title"] = status.title.toStdString();
    object["todayCompleted"] = status.todayCompleted;
    object["todayFocusMinutes"] = status.todayFocusMinutes;
    object["dailyGoal"] = status.dailyGoal;
    object["streak"] = status.streak;
    object["heldBy"] = status.heldBy ? Json(textOf(holdReasonTexts, *status.heldBy).toStdString()) : Json();
    return object;
}

std::expected<TimerStatus, QString> timerStatusFromJson(const Json &object)
{
    try {
        const auto phase = phaseFromRawValue(QString::fromStdString(object.at("phase").get<std::string>()));
        if (!phase)
            return std::unexpected(QStringLiteral("Tomcatto's status has an unknown phase"));
        TimerStatus status;
        status.phase = *phase;
        status.isPaused = object.at("isPaused").get<bool>();
        status.isPending = object.at("isPending").get<bool>();
        status.isOverflowing = object.at("isOverflowing").get<bool>();
        status.remainingSeconds = object.at("remainingSeconds").get<qint64>();
        status.overflowSeconds = object.at("overflowSeconds").get<qint64>();
        status.plannedSeconds = object.at("plannedSeconds").get<qint64>();
        status.cycleIndex = object.at("cycleIndex").get<qint64>();
        status.cyclesPerSet = object.at("cyclesPerSet").get<qint64>();
        status.phaseToken = QString::fromStdString(object.at("phaseToken").get<std::string>());
        status.title = QString::fromStdString(object.at("title").get<std::string>());
        status.todayCompleted = object.at("todayCompleted").get<qint64>();
        status.todayFocusMinutes = object.at("todayFocusMinutes").get<qint64>();
        status.dailyGoal = object.at("dailyGoal").get<qint64>();
        status.streak = object.at("streak").get<qint64>();
        // An application of a later version may know other reasons.
        if (const auto heldBy = object.find("heldBy"); heldBy != object.end() && heldBy->is_string())
            status.heldBy = caseOf<HoldReason>(holdReasonTexts, QString::fromStdString(heldBy->get<std::string>()));
        return status;
    } catch (const Json::exception &exception) {
        return std::unexpected(QStringLiteral("Tomcatto's status cannot be read: ") +
                               QString::fromUtf8(exception.what()));
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
