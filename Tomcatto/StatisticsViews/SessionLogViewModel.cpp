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
    connect(&sources.strings, &LocalizedStrings::changed, this, &SessionLogViewModel::changed);
    connect(&m_rows, &SessionLogModel::counted, this, [this] {
        if (std::exchange(m_isEmpty, m_rows.rowCount() == 0) == m_isEmpty)
            return;
        Q_EMIT changed();
        Q_EMIT isEmptyChanged();
    });
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

void SessionLogViewModel::appear()
{
    m_isShown = true;
    show();
}

void SessionLogViewModel::disappear()
{
    m_isShown = false;
    m_form.close();
    forget();
    // Not under the eyes of a list that is on its way out.
    m_sources.runLoop.async(*this, [this] {
        if (!m_isShown)
            m_rows.clear();
    });
}

void SessionLogViewModel::show()
{
    if (!m_isShown)
        return;
    m_rows.show(m_statistics.range(), kindOf(m_filterIndex));
    Q_EMIT changed();
}

void SessionLogViewModel::selectFilter(int index)
{
    if (index < 0 || index > static_cast<int>(kinds.size()) || index == m_filterIndex)
        return;
    m_filterIndex = index;
    show();
}

void SessionLogViewModel::openForm()
{
    say({});
    const Calendar calendar = m_sources.wallClock.calendar();
    const QDate first = calendar.dayOf(m_sources.aggregator.interval(m_statistics.range()).start);
    m_form.open(first.daysTo(calendar.dayOf(m_sources.wallClock.now())));
}

void SessionLogViewModel::remove(const QString &id)
{
    const QUuid uuid = QUuid::fromString(id);
    // Asked twice before the row had left the view: it can still be brought back.
    if (m_removed && m_removed->id == uuid)
        return;
    m_removed.reset();
    const auto removed = m_editor.remove(uuid);
    if (!removed)
        return report(removed.error());
    // Not set if another process was faster; the rows follow the history by themselves.
    const std::optional<PomodoroSessionRecord> &record = *removed;
    if (!record)
        return forget();
    m_removed = record;
    if (record->startedAt)
        m_rows.catchUp(*record->startedAt);
    if (const auto phase = endedPhase(*record))
        tell(m_sources.strings.format(QStringLiteral("stats.log.removed"), m_rows.texts().summary(*phase)));
}

void SessionLogViewModel::undoRemoval()
{
    if (!m_removed)
        return;
    if (const auto restored = m_editor.restore(*m_removed); !restored)
        return report(restored.error());
    const auto phase = endedPhase(*m_removed);
    forget();
    if (phase)
        reveal(*phase);
}

void SessionLogViewModel::forget()
{
    m_removed.reset();
    tell({});
}

void SessionLogViewModel::tellAdded(const EndedPhase &phase)
{
    if (m_filterIndex > 0 && kindOf(m_filterIndex) != phase.phase)
        selectFilter(0);
    forget();
    reveal(phase);
    const SessionTexts texts = m_rows.texts();
    const QString added = m_sources.strings.format(QStringLiteral("stats.log.added"), texts.summary(phase),
                                                   texts.day(texts.calendar.dayOf(phase.startedAt.value_or(Date())),
                                                             texts.calendar.dayOf(m_sources.wallClock.now())));
    if (m_rows.rowOf(phase.id) < 0)
        tell(added);
    else
        say(added);
}

void SessionLogViewModel::reveal(const EndedPhase &phase)
{
    if (!phase.startedAt)
        return;
    m_rows.catchUp(*phase.startedAt);
    if (const int row = m_rows.rowOf(phase.id); row >= 0)
        Q_EMIT revealed(row);
}

void SessionLogViewModel::tell(const QString &text, bool isError)
{
    m_told = text;
    m_isToldError = isError;
    Q_EMIT toldChanged();
}

void SessionLogViewModel::say(const QString &text)
{
    m_spoken = text;
    Q_EMIT spokenChanged();
}

void SessionLogViewModel::report(const StoreError &error)
{
    const char *const reason = error.failure == StoreFailure::locked     ? "locked"
                               : error.failure == StoreFailure::diskFull ? "disk_full"
                                                                         : "other";
    tell(m_sources.strings.text(QStringLiteral("stats.log.error.") + QLatin1String(reason)), true);
}

}
