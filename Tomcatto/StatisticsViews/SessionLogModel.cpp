#include "StatisticsViews/SessionLogModel.h"

#include <algorithm>

namespace tomcatto {

SessionLogModel::SessionLogModel(const Sources &sources, QObject *parent)
    : QAbstractListModel(parent)
    , m_sources(sources)
    , m_calendar(sources.wallClock.calendar())
{
    connect(&sources.aggregator, &StatsAggregator::changes, this, &SessionLogModel::refresh);
    connect(&sources.strings, &LocalizedStrings::changed, this, &SessionLogModel::retell);
    m_cancellables.push_back(sources.wallClock.onDayChanged([this] { followCalendar(); }));
}

int SessionLogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SessionLogModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const int row = index.row();
    const EndedPhase &ended = rowAt(row).phase;
    const QDate date = dayAt(row);
    const bool isFirst = dayAt(row - 1) != date;
    switch (role) {
    case phaseId:
        return ended.id.toString(QUuid::WithoutBraces);
    case phase:
        return rawValue(ended.phase);
    case title:
        return texts().name(ended.phase);
    case times:
        return texts().times(ended);
    case length:
        return texts().length(ended);
    case outcome:
        return texts().outcome(ended);
    case spoken:
        return spokenText(ended);
    case day:
        return isFirst ? texts().day(date, m_calendar.dayOf(m_sources.wallClock.now())) : QString();
    case dayCount:
        return isFirst ? m_sources.strings.plural(QStringLiteral("stats.log.count"), dayLengthFrom(row)) : QString();
    case isDone:
        return ended.wasCompleted;
    case isLast:
        return dayAt(row + 1) != date;
    default:
        return {};
    }
}

QHash<int, QByteArray> SessionLogModel::roleNames() const
{
    return {{phaseId, "phaseId"},   {phase, "phase"},     {title, "title"},   {times, "times"},
            {length, "length"},     {outcome, "outcome"}, {spoken, "spoken"}, {day, "day"},
            {dayCount, "dayCount"}, {isDone, "isDone"},   {isLast, "isLast"}};
}

bool SessionLogModel::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && m_isShown && m_loadedFrom > m_interval.start;
}

void SessionLogModel::fetchMore(const QModelIndex &parent)
{
    // A chunk without a row, where the store has unknown phases, would not make a view ask again.
    const std::size_t before = m_rows.size();
    while (canFetchMore(parent) && m_rows.size() == before)
        take(readBefore(m_loadedFrom));
}

void SessionLogModel::show(StatsRange range, std::optional<PomodoroPhase> kind)
{
    if (m_isShown && range == m_range && kind == m_kind)
        return;
    clear();
    m_isShown = true;
    m_range = range;
    m_kind = kind;
    m_calendar = m_sources.wallClock.calendar();
    m_interval = m_sources.aggregator.interval(range);
    m_loadedFrom = m_interval.end;
    fetchMore({});
}

void SessionLogModel::clear()
{
    m_refreshTurn.cancel();
    removeRows(0, std::ssize(m_rows));
    m_isShown = false;
}

void SessionLogModel::catchUp(Date date)
{
    if (!m_isShown)
        return;
    m_interval = m_sources.aggregator.interval(m_range);
    if (!m_interval.contains(date))
        return;
    while (m_loadedFrom > date)
        fetchMore({});
    take(readBefore(std::min(m_calendar.dayInterval(m_calendar.dayOf(date)).end, m_interval.end)));
}

int SessionLogModel::rowOf(const QUuid &id) const
{
    const auto found = std::ranges::find(m_rows, id, [](const Row &row) { return row.phase.id; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

/// As many phases before `end` as are read at once, and the rest of the day that the last of them began on.
SessionLogModel::Chunk SessionLogModel::readBefore(Date end) const
{
    Chunk chunk{{m_interval.start, end}, {}};
    // Unknown phases count here, and are left out below.
    const auto newest = m_sources.aggregator.sessions(chunk.interval, m_kind, chunkSize);
    const std::optional<Date> oldest = newest.size() == chunkSize ? newest.back().startedAt : std::nullopt;
    if (oldest) {
        const QDate last = m_calendar.dayOf(*oldest);
        chunk.interval.start = std::max(m_calendar.startOfDay(last), m_interval.start);
    }
    for (EndedPhase &ended : m_sources.aggregator.sessionLog(chunk.interval, m_kind)) {
        if (ended.startedAt)
            chunk.rows.push_back({m_calendar.dayOf(*ended.startedAt), ended});
    }
    return chunk;
}

/// Makes the rows of the chunk's interval those of the chunk; touches nothing outside the first and the last
/// difference.
void SessionLogModel::take(const Chunk &chunk)
{
    std::ptrdiff_t first = firstBefore(chunk.interval.end);
    std::ptrdiff_t end = firstBefore(chunk.interval.start);
    std::span<const Row> wanted(chunk.rows);
    while (first < end && !wanted.empty() && rowAt(first) == wanted.front()) {
        ++first;
        wanted = wanted.subspan(1);
    }
    while (first < end && !wanted.empty() && rowAt(end - 1) == wanted.back()) {
        --end;
        wanted = wanted.first(wanted.size() - 1);
    }
    m_loadedFrom = std::min(m_loadedFrom, chunk.interval.start);
    removeRows(first, end);
    insertRows(first, wanted);
}

void SessionLogModel::removeRows(std::ptrdiff_t first, std::ptrdiff_t end)
{
    if (first >= end)
        return;
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + end);
    endRemoveRows();
    retellDays(first, first);
    Q_EMIT counted();
}

void SessionLogModel::insertRows(std::ptrdiff_t place, std::span<const Row> rows)
{
    if (rows.empty())
        return;
    beginInsertRows({}, static_cast<int>(place), static_cast<int>(place + std::ssize(rows)) - 1);
    m_rows.insert(m_rows.begin() + place, rows.begin(), rows.end());
    endInsertRows();
    retellDays(place, place + std::ssize(rows));
    Q_EMIT counted();
}

/// Rows came to this place or went from it: the days on both sides have other ends and other numbers of phases.
void SessionLogModel::retellDays(std::ptrdiff_t first, std::ptrdiff_t end)
{
    if (m_rows.empty())
        return;
    std::ptrdiff_t from = std::max<std::ptrdiff_t>(first - 1, 0);
    while (from > 0 && dayAt(from - 1) == dayAt(from))
        --from;
    const std::ptrdiff_t last = std::min(end, std::ssize(m_rows) - 1);
    Q_EMIT dataChanged(index(static_cast<int>(from)), index(static_cast<int>(last)), {day, dayCount, isLast});
}

void SessionLogModel::retell()
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

/// Compares the rows with the history, the newest ones now and the others in later turns, so that a long log that was
/// scrolled through holds nothing up.
void SessionLogModel::refresh()
{
    if (!m_isShown)
        return;
    const bool wasWhole = !canFetchMore({});
    m_interval = m_sources.aggregator.interval(m_range);
    removeRows(0, firstBefore(m_interval.end));
    removeRows(firstBefore(m_interval.start), std::ssize(m_rows));
    m_loadedFrom = std::clamp(m_loadedFrom, m_interval.start, m_interval.end);
    m_refreshedFrom = m_interval.end;
    refreshMore();
    // A view that has come to the end asks no more.
    if (wasWhole)
        fetchMore({});
}

void SessionLogModel::refreshMore()
{
    const Chunk chunk = readBefore(m_refreshedFrom);
    take(chunk);
    m_refreshedFrom = chunk.interval.start;
    m_refreshTurn.cancel();
    if (m_refreshedFrom > m_loadedFrom)
        m_refreshTurn = m_sources.runLoop.after(std::chrono::milliseconds(0), [this] { refreshMore(); });
}

void SessionLogModel::followCalendar()
{
    m_calendar = m_sources.wallClock.calendar();
    for (Row &row : m_rows)
        row.day = m_calendar.dayOf(row.phase.startedAt.value_or(Date()));
    retell();
    refresh();
}

/// The newest row that began before the instant; the number of rows where there is none.
std::ptrdiff_t SessionLogModel::firstBefore(Date date) const
{
    return std::ranges::partition_point(m_rows, [date](const Row &row) { return row.phase.startedAt >= date; }) -
           m_rows.begin();
}

/// The day of a row; an invalid one outside the rows.
QDate SessionLogModel::dayAt(std::ptrdiff_t row) const
{
    return row >= 0 && row < std::ssize(m_rows) ? rowAt(row).day : QDate();
}

qint64 SessionLogModel::dayLengthFrom(std::ptrdiff_t row) const
{
    const auto first = m_rows.begin() + row;
    return std::find_if(first, m_rows.end(), [date = first->day](const Row &each) { return each.day != date; }) - first;
}

QString SessionLogModel::spokenText(const EndedPhase &ended) const
{
    const SessionTexts words = texts();
    return m_sources.strings.format(QStringLiteral("stats.log.row.accessibility"), words.name(ended.phase),
                                    words.times(ended), words.length(ended), words.outcome(ended));
}

}
