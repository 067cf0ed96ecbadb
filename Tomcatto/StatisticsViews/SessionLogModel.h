#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Statistics/StatsAggregator.h"
#include "StatisticsViews/SessionTexts.h"

#include <QtCore/QAbstractListModel>
#include <span>

namespace tomcatto {

/// The ended phases of a range as the rows of a list, newest first, grouped by the day they began on. A day is loaded
/// whole, so its heading counts all of it, and phases that began together are never parted. It holds nothing until
/// `show`, then follows the history, the clock, the time zone and the language. A change touches only the rows that it
/// is about, so that a list stays where it is scrolled to. Main thread only.
class SessionLogModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    /// Texts but for the last two. `day` and `dayCount` are empty except for the first row of a day.
    enum Role { phaseId = Qt::UserRole, phase, title, times, length, outcome, spoken, day, dayCount, isDone, isLast };

    /// What the rows come from; everything outlives the model.
    struct Sources
    {
        const StatsAggregator &aggregator;
        const LocalizedStrings &strings;
        WallClock &wallClock;
        MainRunLoop &runLoop;
    };

    /// How many phases are read at once, and the rest of the last one's day.
    static constexpr int chunkSize = 100;

    explicit SessionLogModel(const Sources &sources, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    /// Lists the phases of a range, of one kind only when given, from the newest on.
    void show(StatsRange range, std::optional<PomodoroPhase> kind);
    /// Holds nothing any more.
    void clear();
    /// Reads the day of an instant anew at once, where the range contains it, and loads down to it.
    void catchUp(Date date);
    /// Row of the phase with that identifier; -1 where it is not among those loaded.
    [[nodiscard]] int rowOf(const QUuid &id) const;
    /// How phases are worded now.
    [[nodiscard]] SessionTexts texts() const { return {m_sources.strings, m_calendar}; }

Q_SIGNALS:
    /// The number of rows is another one, and every view of them knows it.
    void counted();

private:
    struct Row
    {
        /// The date that the phase began on.
        QDate day;
        EndedPhase phase;

        bool operator==(const Row &) const = default;
    };
    /// All rows of the instants from one on, up to another.
    struct Chunk
    {
        DateInterval interval;
        std::vector<Row> rows;
    };

    [[nodiscard]] Chunk readBefore(Date end) const;
    void take(const Chunk &chunk);
    void removeRows(std::ptrdiff_t first, std::ptrdiff_t end);
    void insertRows(std::ptrdiff_t place, std::span<const Row> rows);
    void retellDays(std::ptrdiff_t first, std::ptrdiff_t end);
    void retell();
    void refresh();
    void refreshMore();
    void followCalendar();
    [[nodiscard]] std::ptrdiff_t firstBefore(Date date) const;
    [[nodiscard]] const Row &rowAt(std::ptrdiff_t row) const { return m_rows[static_cast<std::size_t>(row)]; }
    [[nodiscard]] QDate dayAt(std::ptrdiff_t row) const;
    [[nodiscard]] qint64 dayLengthFrom(std::ptrdiff_t row) const;
    [[nodiscard]] QString spokenText(const EndedPhase &phase) const;

    Sources m_sources;
    std::vector<Cancellable> m_cancellables;
    bool m_isShown = false;
    StatsRange m_range = StatsRange::week;
    std::optional<PomodoroPhase> m_kind;
    Calendar m_calendar;
    DateInterval m_interval;
    std::vector<Row> m_rows;
    /// What the interval has from here on is in the rows.
    Date m_loadedFrom;
    /// While the rows are read anew: what is before is yet to be read.
    Date m_refreshedFrom;
    Cancellable m_refreshTurn;
};

}
