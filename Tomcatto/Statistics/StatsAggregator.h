#pragma once

#include "Foundation/Logger.h"
#include "Persistence/Repositories/SessionHistory.h"
#include "Platform/Ports/WallClock.h"
#include "Statistics/DailyCounts.h"
#include "Statistics/DailyStat.h"
#include "Statistics/EndedPhase.h"
#include "Statistics/FocusBucket.h"
#include "Statistics/StatsRange.h"

#include <QtCore/QObject>

namespace tomcatto {

/// Turns the history of completed work phases into the figures that the surfaces show.
///
/// Two caches, built when first needed, make each figure a matter of binary searches. After a save of the history the
/// next query adds to them what was added there; where anything else may have changed they are built anew. They never
/// expire by time: today is asked of the wall clock for every query, and so is the calendar; when that has changed, the
/// days are counted anew. A history that cannot be read counts as empty. Sums and products that do not fit 64 bits are
/// fatal. Main thread only.
class StatsAggregator final : public QObject
{
    Q_OBJECT

public:
    /// @param history and @param wallClock must outlive the aggregator.
    StatsAggregator(const SessionHistory &history, const WallClock &wallClock);

    /// How many days the current streak is followed back unless said otherwise.
    static constexpr qint64 defaultMaxDays = 36'500;

    /// Completed work phases that began today.
    [[nodiscard]] qint64 todayCount() const;
    /// Whole minutes of the phases that began in the interval; the remainder is dropped once, on the sum.
    [[nodiscard]] qint64 focusMinutes(const DateInterval &interval) const;
    /// Completed work phases that began in the interval.
    [[nodiscard]] qint64 completedWorkCount(const DateInterval &interval) const;
    /// Consecutive days with completed work up to today, or up to yesterday while today has none; at most `maxDays`.
    [[nodiscard]] qint64 currentStreak(qint64 maxDays = defaultMaxDays) const;
    /// The most consecutive days with completed work.
    [[nodiscard]] qint64 bestStreak() const;
    /// Completed work phases of the calendar week that contains today, and of the calendar month.
    [[nodiscard]] qint64 completedThisWeek() const;
    [[nodiscard]] qint64 completedThisMonth() const;
    /// Each day from `daysBack` days before today to today, oldest first; empty for a negative number.
    [[nodiscard]] std::vector<DailyStat> dailyStats(qint64 daysBack) const;
    /// Completed work phases a day times `factor`, over `days` days ending today, at least one; truncated toward zero.
    [[nodiscard]] qint64 dailyAverage(qint64 days, qint64 factor) const;
    /// Focus time for each unit from the one that contains `start`, or today when that is earlier, to today's.
    [[nodiscard]] std::vector<FocusBucket> focusBuckets(QDate start, CalendarUnit unit) const;
    /// 7 rows, the calendar's first weekday on top, by `weeks` columns, the current week last: completed work phases of
    /// the last weeks × 7 days. Empty without weeks.
    [[nodiscard]] std::vector<std::vector<qint64>> weeklyHeatmap(qint64 weeks) const;
    /// The day of that map's first row and column.
    [[nodiscard]] QDate heatmapStart(qint64 weeks) const;

    /// When the first stored phase of any kind started.
    [[nodiscard]] std::optional<Date> earliestSessionDate() const;
    /// The stored records that started in the interval, newest first, unknown phases included.
    [[nodiscard]] std::vector<PomodoroSessionRecord> sessions(const DateInterval &interval,
                                                              std::optional<PomodoroPhase> phase = {},
                                                              std::optional<int> limit = {}) const;
    /// The same one by one, without keeping them all in memory. `visit` must not write to the history.
    /// @return whether all were read
    [[nodiscard]] bool forEachSession(const DateInterval &interval,
                                      const std::function<void(const PomodoroSessionRecord &)> &visit) const;
    /// Those of `sessions` as ended phases for the session log; records of unknown phases are left out.
    [[nodiscard]] std::vector<EndedPhase> sessionLog(const DateInterval &interval,
                                                     std::optional<PomodoroPhase> phase = {},
                                                     std::optional<int> limit = {}) const;

    /// The range's instants, the days of its average and its chart, by the clock, calendar and history as they are now.
    [[nodiscard]] DateInterval interval(StatsRange range) const;
    [[nodiscard]] qint64 dayCount(StatsRange range) const;
    [[nodiscard]] StatsChartLayout chartLayout(StatsRange range) const;

Q_SIGNALS:
    /// After every save of the history; the figures may have changed.
    void changes();

private:
    struct CountedDays
    {
        Calendar calendar;
        DailyCounts counts;
    };

    void invalidate();
    void catchUp() const;
    [[nodiscard]] const StampTimeline &stamps() const;
    [[nodiscard]] const DailyCounts &dailyCounts(const Calendar &calendar) const;
    [[nodiscard]] qint64 countInCurrent(CalendarUnit unit) const;

    const SessionHistory &m_history;
    const WallClock &m_wallClock;
    Logger m_logger{QStringLiteral("StatsAggregator")};
    mutable std::optional<StampTimeline> m_stampCache;
    mutable std::optional<CountedDays> m_dailyCountCache;
    /// How far the caches know the history, and whether it has been saved since.
    mutable std::optional<HistoryPosition> m_position;
    mutable bool m_isBehind = false;
    std::vector<Cancellable> m_cancellables;
};

}
