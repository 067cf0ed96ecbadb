#include "StatisticsViews/AddPhaseViewModel.h"

#include "Statistics/StatsAggregator.h"

#include <QtCore/QRegularExpression>

namespace tomcatto {
namespace {

/// A suggested start lies on these, counted from the hour.
constexpr double suggestedStep = 300;
/// So many taken times are stepped over for a suggestion.
constexpr int mostSteps = 100;

/// The time of day that people write as "9:30", "09.30", "0930", "9", "9:30 pm"; nothing for anything else.
std::optional<QTime> timeOfDay(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^(\\d{1,2}?)(?:\\s*[:.h]?\\s*(\\d{2}))?\\s*(?:([ap])\\.?m\\.?)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    int hour = match.captured(1).toInt();
    if (const QString half = match.captured(3).toLower(); !half.isEmpty()) {
        if (hour < 1 || hour > 12)
            return std::nullopt;
        hour = hour % 12 + (half == QLatin1String("p") ? 12 : 0);
    }
    const QTime time(hour, match.captured(2).toInt());
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QDateTime localTime(Date date, const Calendar &calendar)
{
    return toDateTime(date).toTimeZone(calendar.timeZone);
}

}

AddPhaseViewModel::AddPhaseViewModel(const Sources &sources, QObject *parent)
    : QObject(parent)
    , m_sources(sources)
{
    connect(&sources.aggregator, &StatsAggregator::changes, this, &AddPhaseViewModel::check);
    connect(&sources.strings, &LocalizedStrings::changed, this, [this] {
        listDays();
        check();
    });
    m_cancellables.push_back(sources.wallClock.onDayChanged([this] {
        followToday();
        check();
    }));
}

void AddPhaseViewModel::open(qint64 daysBack)
{
    constexpr qint64 leastDaysBack = 31;
    m_isOpen = true;
    m_isTouched = false;
    m_daysBack = std::max(daysBack, leastDaysBack);
    m_today = today();
    listDays();
    constexpr int secondsPerMinute = 60;
    m_minutes = static_cast<int>(
        std::clamp<qint64>(m_sources.settings.workDurationSeconds() / secondsPerMinute, leastMinutes(), mostMinutes()));
    suggestStart();
    check();
}

void AddPhaseViewModel::close()
{
    m_isOpen = false;
    m_dayTexts.clear();
    Q_EMIT changed();
}

void AddPhaseViewModel::chooseDay(int index)
{
    if (index < 0 || index >= m_dayTexts.size() || index == m_dayIndex)
        return;
    m_dayIndex = index;
    touch();
}

void AddPhaseViewModel::writeStart(const QString &text)
{
    if (text == m_startText)
        return;
    m_startText = text;
    touch();
}

void AddPhaseViewModel::setMinutes(int minutes)
{
    m_minutes = std::clamp(minutes, leastMinutes(), mostMinutes());
    touch();
}

void AddPhaseViewModel::add()
{
    if (!m_isOpen)
        return;
    touch();
    const std::optional<Date> date = start();
    if (!date || isRefused())
        return;
    const auto phase = m_sources.editor.add(*date, m_minutes);
    if (!phase) {
        refuse(phase.error());
        Q_EMIT changed();
        return;
    }
    close();
    Q_EMIT added(*phase);
}

void AddPhaseViewModel::touch()
{
    m_isTouched = true;
    check();
}

void AddPhaseViewModel::check()
{
    if (!m_isOpen)
        return;
    m_problem = Problem::none;
    if (const std::optional<Date> date = start()) {
        EndedPhase wanted;
        wanted.startedAt = date;
        wanted.endedAt = *date + std::chrono::minutes(m_minutes);
        m_line = m_sources.strings.format(QStringLiteral("stats.add.line"), texts().times(wanted));
        if (const auto phase = m_sources.editor.checked(*date, m_minutes); !phase)
            refuse(phase.error());
    }
    Q_EMIT changed();
}

/// The latest time before now that is free for a phase of these minutes.
void AddPhaseViewModel::suggestStart()
{
    const Seconds length = std::chrono::minutes(m_minutes);
    const auto endingBy = [length](Date end) {
        const double latest = secondsSince1970(end - length);
        return dateFromSeconds(std::floor(latest / suggestedStep) * suggestedStep);
    };
    Date start = endingBy(m_sources.wallClock.now());
    for (int step = 0; step < mostSteps; ++step) {
        const auto phase = m_sources.editor.checked(start, m_minutes);
        const auto taken = phase ? std::nullopt : phase.error().phase;
        const auto takenFrom = taken ? taken->startedAt : std::nullopt;
        if (!takenFrom)
            break;
        start = endingBy(*takenFrom);
    }
    const QDateTime local = localTime(start, m_sources.wallClock.calendar());
    m_dayIndex = static_cast<int>(std::clamp<qint64>(local.date().daysTo(m_today), 0, m_dayTexts.size() - 1));
    m_startText = local.time().toString(QStringLiteral("HH:mm"));
}

/// The instant of day and start; without one the refusal says why.
std::optional<Date> AddPhaseViewModel::start()
{
    const std::optional<QTime> time = timeOfDay(m_startText);
    if (!time) {
        refuse(Problem::start, text("time"));
        return std::nullopt;
    }
    const QDateTime local(m_today.addDays(-m_dayIndex), *time, m_sources.wallClock.calendar().timeZone);
    if (!local.isValid()) {
        refuse(Problem::start, text("skipped"));
        return std::nullopt;
    }
    return toDate(local);
}

void AddPhaseViewModel::refuse(const AddRefusal &refusal)
{
    using Reason = AddRefusal::Reason;
    switch (refusal.reason) {
    case Reason::length:
    case Reason::store:
        return refuse(Problem::other, text("store"));
    case Reason::future:
        return refuse(Problem::start, text("future"));
    case Reason::overlap:
        break;
    }
    const EndedPhase phase = refusal.phase.value_or(EndedPhase());
    const QString key = QStringLiteral("stats.add.refused.") + QLatin1String(phase.endedAt ? "overlap" : "running");
    refuse(Problem::start, m_sources.strings.format(key, texts().name(phase.phase), texts().times(phase)));
}

void AddPhaseViewModel::refuse(Problem problem, const QString &line)
{
    m_problem = problem;
    if (m_isTouched)
        m_line = line;
}

void AddPhaseViewModel::followToday()
{
    const QDate before = std::exchange(m_today, today());
    m_dayIndex = static_cast<int>(std::clamp<qint64>(m_dayIndex + before.daysTo(m_today), 0, m_daysBack));
    listDays();
}

void AddPhaseViewModel::listDays()
{
    if (!m_isOpen)
        return;
    m_dayTexts.clear();
    for (qint64 back = 0; back <= m_daysBack; ++back)
        m_dayTexts.append(texts().shortDay(m_today.addDays(-back), m_today));
}

QDate AddPhaseViewModel::today() const
{
    return m_sources.wallClock.calendar().dayOf(m_sources.wallClock.now());
}

QString AddPhaseViewModel::text(const char *refusal) const
{
    return m_sources.strings.text(QStringLiteral("stats.add.refused.") + QLatin1String(refusal));
}

}
