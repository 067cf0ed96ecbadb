#include "StatisticsViews/SessionLogViewModel.h"

#include "StatisticsViews/StatisticsViewModel.h"

namespace tomcatto {
namespace {

/// In the order of the filters, after the one for all.
constexpr std::array kinds{PomodoroPhase::working, PomodoroPhase::shortBreak, PomodoroPhase::longBreak};

std::optional<PomodoroPhase> kindOf(int filter)
{
    return filter == 0 ? std::nullopt : std::optional(kinds.at(static_cast<std::size_t>(filter) - 1));
}

}

SessionLogViewModel::SessionLogViewModel(const StatisticsViewModel &statistics, HistoryEditor &editor,
                                         const PomodoroSettings &settings, const SessionLogModel::Sources &sources,
                                         QObject *parent)
    : QObject(parent)
    , m_statistics(statistics)
    , m_editor(editor)
    , m_sources(sources)
    , m_rows(sources)
    , m_form({editor, sources.aggregator, settings, sources.strings, sources.wallClock})
{
    connect(&statistics, &StatisticsViewModel::changed, this, &SessionLogViewModel::show);
    connect(&sources.strings, &LocalizedStrings::changed, this, [this] {
        say({}, false, {});
        Q_EMIT changed();
        Q_EMIT removedChanged();
    });
    // Only the first row and the last one make a difference here.
    const auto counted = [this] {
        if (std::exchange(m_isEmpty, m_rows.rowCount() == 0) != m_isEmpty)
            Q_EMIT changed();
    };
    connect(&m_rows, &QAbstractItemModel::rowsInserted, this, counted);
    connect(&m_rows, &QAbstractItemModel::rowsRemoved, this, counted);
    connect(&m_form, &AddPhaseViewModel::added, this, &SessionLogViewModel::tellAdded);
}

QStringList SessionLogViewModel::filterTexts() const
{
    QStringList filters{m_sources.strings.text(QStringLiteral("stats.log.filter.all"))};
    for (const PomodoroPhase kind : kinds)
        filters.append(m_rows.texts().name(kind));
    return filters;
}

QString SessionLogViewModel::emptyText(const char *part) const
{
    if (!m_isEmpty)
        return {};
    const char *const state = !hasHistory()       ? "stats.log.empty."
                              : m_filterIndex > 0 ? "stats.log.empty_filter."
                                                  : "stats.empty_range.";
    return m_sources.strings.text(QLatin1String(state) + QLatin1String(part));
}

QString SessionLogViewModel::removedText() const
{
    const auto phase = m_removed ? endedPhase(*m_removed) : std::nullopt;
    return phase ? m_sources.strings.format(QStringLiteral("stats.log.removed"), m_rows.texts().summary(*phase))
                 : QString();
}

void SessionLogViewModel::appear()
{
    m_isShown = true;
    show();
}

void SessionLogViewModel::disappear()
{
    m_isShown = false;
    m_form.close();
    m_rows.clear();
    forgetRemoval();
    say({}, false, {});
}

void SessionLogViewModel::show()
{
    if (!m_isShown)
        return;
    m_rows.show(allStatsRanges.at(static_cast<std::size_t>(m_statistics.rangeIndex())), kindOf(m_filterIndex));
    Q_EMIT changed();
}

void SessionLogViewModel::selectFilter(int index)
{
    if (index < 0 || index > static_cast<int>(kinds.size()) || index == m_filterIndex)
        return;
    m_filterIndex = index;
    say({}, false, {});
    show();
}

void SessionLogViewModel::openForm()
{
    say({}, false, {});
    const Calendar calendar = m_sources.wallClock.calendar();
    const StatsRange range = allStatsRanges.at(static_cast<std::size_t>(m_statistics.rangeIndex()));
    const QDate first = calendar.dayOf(m_sources.aggregator.interval(range).start);
    m_form.open(first.daysTo(calendar.dayOf(m_sources.wallClock.now())));
}

void SessionLogViewModel::remove(const QString &id)
{
    say({}, false, {});
    const auto removed = m_editor.remove(QUuid::fromString(id));
    if (!removed)
        return report(removed.error());
    // Nothing where another process was faster; the rows follow the history by themselves.
    if (!*removed)
        return;
    m_removed = *removed;
    Q_EMIT removedChanged();
    if (m_removed->startedAt)
        m_rows.catchUp(*m_removed->startedAt);
}

void SessionLogViewModel::undoRemoval()
{
    say({}, false, {});
    if (!m_removed)
        return;
    const PomodoroSessionRecord record = *m_removed;
    if (const auto restored = m_editor.restore(record); !restored) {
        // It can be tried again.
        Q_EMIT removedChanged();
        return report(restored.error());
    }
    forgetRemoval();
    if (const auto phase = endedPhase(record))
        reveal(*phase);
}

void SessionLogViewModel::forgetRemoval()
{
    if (!m_removed)
        return;
    m_removed.reset();
    Q_EMIT removedChanged();
}

void SessionLogViewModel::tellAdded(const EndedPhase &phase)
{
    if (m_filterIndex > 0 && kindOf(m_filterIndex) != phase.phase)
        selectFilter(0);
    reveal(phase);
    const SessionTexts texts = m_rows.texts();
    const QString added = m_sources.strings.format(
        QStringLiteral("stats.log.added"), texts.summary(phase),
        texts.day(texts.calendar.dayOf(*phase.startedAt), texts.calendar.dayOf(m_sources.wallClock.now())));
    say(m_rows.rowOf(phase.id) < 0 ? added : QString(), false, added);
}

void SessionLogViewModel::reveal(const EndedPhase &phase)
{
    if (!phase.startedAt)
        return;
    m_rows.catchUp(*phase.startedAt);
    if (const int row = m_rows.rowOf(phase.id); row >= 0)
        Q_EMIT revealed(row);
}

void SessionLogViewModel::say(const QString &notice, bool isError, const QString &spoken)
{
    m_notice = notice;
    m_isNoticeError = isError;
    m_spokenNotice = spoken;
    Q_EMIT noticeChanged();
}

void SessionLogViewModel::report(const StoreError &error)
{
    const char *const reason = error.failure == StoreFailure::locked     ? "locked"
                               : error.failure == StoreFailure::diskFull ? "disk_full"
                                                                         : "other";
    const QString text = m_sources.strings.text(QStringLiteral("stats.log.error.") + QLatin1String(reason));
    say(text, true, text);
}

}
