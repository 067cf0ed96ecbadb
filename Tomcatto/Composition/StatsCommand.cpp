#include "Composition/StatsCommand.h"

#include "Statistics/StatsReport.h"

namespace tomcatto {

void addStatsCommand(CommandTable &table, const StatsAggregator &aggregator, const PomodoroSettings &settings)
{
    table.add(QStringLiteral("stats"), [&aggregator, &settings](const nlohmann::ordered_json &arguments) {
        const QString name = textArgument(arguments, "range");
        const auto range = fromRawValue<StatsRange>(name);
        if (!range)
            return controlReply(ExitStatus::usage,
                                QStringLiteral("Unknown range \"%1\"; use today, week, month or allTime").arg(name));
        const StatsReport report = gatherStatsReport(aggregator, *range, settings.dailyGoalPomodoros());
        return ControlReply{ExitStatus::done, {}, toJson(report)};
    });
}

}
