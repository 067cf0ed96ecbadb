#include "Statistics/StatsAggregator.h"

#include "Foundation/CheckedArithmetic.h"

#include <algorithm>

namespace tomcatto {

StatsAggregator::StatsAggregator(const SessionHistory &history, const WallClock &wallClock)
    : m_history(history)
    , m_wallClock(wallClock)
{
    m_cancellables.push_back(m_history.onSave([this] { invalidate(); }));
}

qint64 StatsAggregator::todayCount() const
{
    return countInCurrent(CalendarUnit::day);
}

qint64 StatsAggregator::focusMinutes(const DateInterval &interval) const
{
    const StampTimeline &timeline = stamps();
    return timeline.seconds(timeline.lowerBound(interval.start), timeline.lowerBound(interval.end)) / 60;
}

qint64 StatsAggregator::completedWorkCount(const DateInterval &interval) const
{
    const StampTimeline &timeline = stamps();
    const std::size_t first = timeline.lowerBound(interval.start);
    const std::size_t end = timeline.lowerBound(interval.end);
    return first < end ? static_cast<qint64>(end - first) : 0;
}

qint64 StatsAggregator::currentStreak(qint64 maxDays) const
{
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    if (!Calendar::addingDays(today, checkedSubtract<qint64>(0, maxDays)))
        return 0;
    const DailyCounts &counts = dailyCounts(calendar);
    const QDate tomorrow = today.addDays(1);
    return counts.runEndingOn(counts.count(today, tomorrow) > 0 ? today : calendar.dayBefore(today), maxDays);
}

qint64 StatsAggregator::bestStreak() const
{
    return dailyCounts(m_wallClock.calendar()).longestRun();
}

qint64 StatsAggregator::completedThisWeek() const
{
    return countInCurrent(CalendarUnit::weekOfYear);
}

qint64 StatsAggregator::completedThisMonth() const
{
    return countInCurrent(CalendarUnit::month);
}

std::vector<DailyStat> StatsAggregator::dailyStats(qint64 daysBack) const
{
    if (daysBack < 0)
        return {};
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    const std::optional<QDate> first = Calendar::addingDays(today, -daysBack);
    if (!first)
        return {};
    const DailyCounts &counts = dailyCounts(calendar);
    std::vector<DailyStat> stats;
    stats.reserve(static_cast<std::size_t>(daysBack) + 1);
    std::size_t index = counts.lowerBound(*first);
    for (QDate day = *first; day <= today; day = day.addDays(1)) {
        const bool counted = index < counts.days().size() && counts.days()[index] == day;
        stats.push_back({day, counted ? counts.countAt(index++) : 0});
    }
    return stats;
}

qint64 StatsAggregator::dailyAverage(qint64 days, qint64 factor) const
{
    const qint64 daysBack = std::max<qint64>(0, checkedSubtract<qint64>(days, 1));
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    const std::optional<QDate> first = Calendar::addingDays(today, -daysBack);
    if (!first)
        return 0;
    return checkedMultiply(dailyCounts(calendar).count(*first, today.addDays(1)), factor) / (daysBack + 1);
}

std::vector<FocusBucket> StatsAggregator::focusBuckets(QDate start, CalendarUnit unit) const
{
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    const StampTimeline &timeline = stamps();
    const DailyCounts &counts = dailyCounts(calendar);

    std::vector<FocusBucket> buckets;
    QDate cursor = calendar.firstDay(unit, std::min(start, today));
    std::size_t index = counts.lowerBound(cursor);
    while (cursor.isValid() && cursor <= today) {
        const QDate next = calendar.firstDayAfter(unit, cursor);
        const std::size_t first = counts.firstStamp(index);
        while (index < counts.days().size() && counts.days()[index] < next)
            ++index;
        buckets.push_back({cursor, timeline.seconds(first, counts.firstStamp(index)) / 60});
        cursor = next;
    }
    return buckets;
}

std::vector<std::vector<qint64>> StatsAggregator::weeklyHeatmap(qint64 weeks) const
{
    if (weeks <= 0)
        return {};
    const qint64 daysBack = checkedMultiply<qint64>(weeks, 7) - 1;
    std::vector grid(7, std::vector<qint64>(static_cast<std::size_t>(weeks)));
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    const std::optional<QDate> first = Calendar::addingDays(today, -daysBack);
    if (!first)
        return grid;
    const QDate currentWeek = calendar.firstDay(CalendarUnit::weekOfYear, today);
    const DailyCounts &counts = dailyCounts(calendar);
    for (std::size_t index = counts.lowerBound(*first); index < counts.days().size(); ++index) {
        const QDate day = counts.days()[index];
        if (day > today)
            break;
        // Days of the oldest, partly covered week lie left of the grid.
        const qint64 weeksAgo = calendar.firstDay(CalendarUnit::weekOfYear, day).daysTo(currentWeek) / 7;
        if (weeksAgo >= weeks)
            continue;
        const auto row = static_cast<std::size_t>(calendar.weekdayIndex(day));
        grid[row][static_cast<std::size_t>(weeks - 1 - weeksAgo)] = counts.countAt(index);
    }
    return grid;
}

QDate StatsAggregator::heatmapStart(qint64 weeks) const
{
    const Calendar calendar = m_wallClock.calendar();
    const QDate thisWeek = calendar.firstDay(CalendarUnit::weekOfYear, calendar.dayOf(m_wallClock.now()));
    return thisWeek.addDays(-7 * (weeks - 1));
}

std::optional<Date> StatsAggregator::earliestSessionDate() const
{
    return m_history.earliestSessionDate();
}

std::vector<PomodoroSessionRecord> StatsAggregator::sessions(const DateInterval &interval,
                                                             std::optional<PomodoroPhase> phase,
                                                             std::optional<int> limit) const
{
    return m_history.sessions(interval, phase, limit);
}

bool StatsAggregator::forEachSession(const DateInterval &interval,
                                     const std::function<void(const PomodoroSessionRecord &)> &visit) const
{
    return m_history.forEachSession(interval, visit);
}

std::vector<EndedPhase> StatsAggregator::sessionLog(const DateInterval &interval, std::optional<PomodoroPhase> phase,
                                                    std::optional<int> limit) const
{
    std::vector<EndedPhase> phases;
    for (const PomodoroSessionRecord &record : sessions(interval, phase, limit)) {
        if (const std::optional<EndedPhase> ended = endedPhase(record))
            phases.push_back(*ended);
    }
    return phases;
}

DateInterval StatsAggregator::interval(StatsRange range) const
{
    return tomcatto::interval(range, earliestSessionDate(), m_wallClock.now(), m_wallClock.calendar());
}

qint64 StatsAggregator::dayCount(StatsRange range) const
{
    return tomcatto::dayCount(range, earliestSessionDate(), m_wallClock.now(), m_wallClock.calendar());
}

StatsChartLayout StatsAggregator::chartLayout(StatsRange range) const
{
    return tomcatto::chartLayout(range, earliestSessionDate(), m_wallClock.now(), m_wallClock.calendar());
}

void StatsAggregator::invalidate()
{
    m_isBehind = true;
    Q_EMIT changes();
    m_logger.debug(QStringLiteral("Stats cache invalidated after Core Data save"));
}

void StatsAggregator::catchUp() const
{
    const auto added = m_stampCache && m_position ? m_history.completedWorkAfter(*m_position) : std::nullopt;
    if (!added) {
        m_stampCache.reset();
        m_dailyCountCache.reset();
        return;
    }
    m_position = added->position;
    for (const CompletedWorkStamp &stamp : added->stamps) {
        const auto place = m_stampCache->add(stamp);
        if (place && m_dailyCountCache &&
            !m_dailyCountCache->counts.add(*place, stamp.startedAt, m_dailyCountCache->calendar))
            m_dailyCountCache.reset();
    }
}

const StampTimeline &StatsAggregator::stamps() const
{
    if (std::exchange(m_isBehind, false))
        catchUp();
    if (!m_stampCache) {
        CompletedWorkReading reading = m_history.completedWork();
        m_stampCache.emplace(std::move(reading.stamps));
        m_position = reading.position;
    }
    return *m_stampCache;
}

const DailyCounts &StatsAggregator::dailyCounts(const Calendar &calendar) const
{
    const StampTimeline &timeline = stamps();
    if (!m_dailyCountCache || m_dailyCountCache->calendar != calendar)
        m_dailyCountCache.emplace(calendar, DailyCounts(timeline, calendar));
    return m_dailyCountCache->counts;
}

qint64 StatsAggregator::countInCurrent(CalendarUnit unit) const
{
    const Calendar calendar = m_wallClock.calendar();
    const QDate today = calendar.dayOf(m_wallClock.now());
    return dailyCounts(calendar).count(calendar.firstDay(unit, today), calendar.firstDayAfter(unit, today));
}

}
