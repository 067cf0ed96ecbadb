#include "WidgetWindow/WidgetContent.h"

#include "Foundation/EnumTexts.h"
#include "Localization/SpokenDuration.h"
#include "StatusPill/StatusPillSource.h"

#include <algorithm>
#include <cmath>

namespace tomcatto {

namespace {

/// The program goes on past the end at once, but may take this long to say so.
constexpr Seconds graceTime{5};

/// Puts the content of one snapshot together.
class Composer final
{
public:
    Composer(const WidgetSnapshot &snapshot, Date now, const Calendar &calendar, const LocalizedStrings &strings)
        : m_snapshot(snapshot)
        , m_now(now)
        , m_calendar(calendar)
        , m_strings(strings)
    {
    }

    [[nodiscard]] WidgetContent content(const PhaseArc &arc) const
    {
        WidgetContent content;
        content.state = state();
        content.phase = m_snapshot.phase;
        content.isOverflowing = m_snapshot.isOverflowing;
        content.isCounting = content.state == WidgetState::running || content.state == WidgetState::overtime;
        fillFigures(content);
        if (content.isOld()) {
            fillOld(content);
        } else {
            fillPhase(content, arc);
            fillRounds(content);
        }
        return content;
    }

private:
    [[nodiscard]] QString text(const char *key) const { return m_strings.text(QString::fromLatin1(key)); }

    [[nodiscard]] WidgetState state() const
    {
        if (m_now >= m_snapshot.validUntil)
            return WidgetState::otherDay;
        if (m_snapshot.phaseEndsAt && m_now - *m_snapshot.phaseEndsAt >= graceTime)
            return WidgetState::notRunning;
        if (m_snapshot.phase == WidgetPhase::idle)
            return WidgetState::idle;
        if (m_snapshot.isPending)
            return WidgetState::pending;
        if (m_snapshot.isPaused)
            return WidgetState::paused;
        return m_snapshot.isOverflowing ? WidgetState::overtime : WidgetState::running;
    }

    [[nodiscard]] QString phaseName(WidgetPhase phase) const
    {
        constexpr std::array keys{"menubar.phase.work", "menubar.phase.work", "menubar.phase.short_break",
                                  "menubar.phase.long_break"};
        return m_strings.text(textOf(keys, phase));
    }

    [[nodiscard]] bool isBreak() const
    {
        return m_snapshot.phase == WidgetPhase::shortBreak || m_snapshot.phase == WidgetPhase::longBreak;
    }

    [[nodiscard]] QString name() const
    {
        if (m_snapshot.isPending)
            return text(isBreak() ? "menubar.phase.ready" : "menubar.phase.focus_ready");
        return m_snapshot.isOverflowing ? text("menubar.phase.overtime") : phaseName(m_snapshot.phase);
    }

    /// "until 14:28". Words such as the German "Uhr" go with a day of 24 hours only.
    [[nodiscard]] QString timeOfDay(const char *key, Date instant) const
    {
        const QTime time = toDateTime(instant).toTimeZone(m_calendar.timeZone).time();
        const bool isHalved = m_calendar.timeFormat.contains(u'a', Qt::CaseInsensitive);
        return m_strings.format(QLatin1String(key) + (isHalved ? QStringLiteral("_am_pm") : QString()),
                                m_strings.locale().toString(time, m_calendar.timeFormat));
    }

    [[nodiscard]] QString caption(WidgetState state) const
    {
        if (state == WidgetState::idle)
            return text("widget.caption.idle");
        if (state == WidgetState::pending)
            return text("menubar.pending.caption");
        if (state == WidgetState::running && m_snapshot.phaseEndsAt)
            return timeOfDay("menubar.header.until", *m_snapshot.phaseEndsAt);
        if (state == WidgetState::overtime && m_snapshot.overflowStartedAt)
            return timeOfDay("widget.caption.since", *m_snapshot.overflowStartedAt);
        return text("widget.caption.paused");
    }

    void fillPhase(WidgetContent &content, const PhaseArc &arc) const
    {
        const bool isPaused = content.state == WidgetState::paused;
        const double left = secondsLeft(m_snapshot, m_now).value_or(static_cast<double>(m_snapshot.staticSeconds));
        // Past the end whole seconds have passed; before it the one that has begun still counts.
        const auto seconds =
            static_cast<qint64>(std::clamp(m_snapshot.isOverflowing ? std::floor(-left) : std::ceil(left), 0.0, 1e9));
        content.time = (m_snapshot.isOverflowing ? QStringLiteral("+") : QString()) + clockText(seconds);
        content.title = isPaused ? m_strings.format(QStringLiteral("menubar.phase.paused"), name()) : name();
        content.shortTitle = isPaused ? text("widget.paused") : name();
        content.caption = caption(content.state);
        if (m_snapshot.isOverflowing)
            content.progress = 1;
        else if (content.state == WidgetState::running || isPaused)
            content.progress = arc.progress(left);
        content.nextPhase = m_snapshot.phase == WidgetPhase::idle ? WidgetPhase::work : m_snapshot.nextPhase;
        content.nextName = phaseName(content.nextPhase);
        content.nextLabel = text("widget.comes_next");
        content.spoken = m_strings.format(QStringLiteral("widget.spoken"), spokenPhase(content.state, seconds),
                                          m_snapshot.todayCompleted, m_snapshot.dailyGoal);
    }

    [[nodiscard]] QString spokenPhase(WidgetState state, qint64 seconds) const
    {
        constexpr std::array keys{"menubar.dial.idle", "menubar.dial.ready", "menubar.dial.remaining",
                                  "menubar.dial.paused", "menubar.dial.overtime"};
        constexpr qint64 minute = 60;
        const qint64 spoken = seconds < minute ? seconds : seconds / minute * minute;
        const bool isPausedOvertime = state == WidgetState::paused && m_snapshot.isOverflowing;
        const QString who =
            isPausedOvertime ? m_strings.format(QStringLiteral("menubar.phase.paused"), name()) : name();
        return m_strings.format(textOf(keys, isPausedOvertime ? WidgetState::overtime : state), who,
                                spokenDuration(m_strings, spoken));
    }

    void fillRounds(WidgetContent &content) const
    {
        constexpr qint64 most = 1'000;
        const qint64 rounds = std::clamp<qint64>(m_snapshot.cyclesPerSet, 1, most);
        const qint64 round = std::clamp<qint64>(m_snapshot.cycleIndex, 0, rounds - 1) + 1;
        content.rounds = static_cast<int>(rounds);
        // The index moves on with the next work phase, so during a break the round it counts is over.
        content.roundsDone = static_cast<int>(isBreak() ? round : round - 1);
        content.isRoundCurrent = !isBreak();
        content.roundLabel = m_strings.format(QStringLiteral("menubar.popover.cycle_count"), round, rounds);
        content.roundCompact = m_strings.format(QStringLiteral("menubar.cycle"), round, rounds);
    }

    /// "2 h 05 min", of which the numbers stand out.
    [[nodiscard]] QList<WidgetTextPart> focusParts() const
    {
        const qint64 minutes = std::max<qint64>(m_snapshot.todayFocusMinutes, 0);
        const auto rest = QString::number(minutes % 60);
        QList<WidgetTextPart> parts{{minutes < 60 ? rest : rest.rightJustified(2, u'0')},
                                    {text("duration.unit.minutes"), true}};
        if (minutes >= 60)
            parts = QList<WidgetTextPart>{{QString::number(minutes / 60)}, {text("duration.unit.hours"), true}} + parts;
        return parts;
    }

    void fillFigures(WidgetContent &content) const
    {
        content.hasFigures = true;
        const bool isOfOtherDay = content.state == WidgetState::otherDay;
        content.focus = {focusParts(), isOfOtherDay ? ofDay("widget.focus_of") : text("widget.focus_today")};
        content.goal = {{{QString::number(m_snapshot.todayCompleted)},
                         {QStringLiteral("/ ") + QString::number(m_snapshot.dailyGoal), true}},
                        isOfOtherDay ? ofDay("widget.goal_of") : text("menubar.strip.goal_today")};
        content.streak = {{{QString::number(m_snapshot.streak)}}, text("menubar.strip.streak_days")};
    }

    /// The day that the figures are of.
    [[nodiscard]] QDate day() const { return m_calendar.dayOf(m_snapshot.validUntil - Seconds(1)); }

    [[nodiscard]] QString ofDay(const char *key) const
    {
        return m_strings.format(QString::fromLatin1(key),
                                m_strings.locale().standaloneDayName(day().dayOfWeek(), QLocale::LongFormat));
    }

    void fillOld(WidgetContent &content) const
    {
        const bool isOfOtherDay = content.state == WidgetState::otherDay;
        content.title = isOfOtherDay ? ofDay("widget.figures_of") : text("widget.not_running");
        content.shortTitle = text(isOfOtherDay ? "widget.short.old" : "widget.short.not_running");
        content.caption =
            isOfOtherDay ? m_strings.locale().toString(day(), text("stats.add.day.date")) : text("widget.last_figures");
        content.hint = text("widget.open");
        content.spoken = m_strings.format(QStringLiteral("widget.spoken"), content.title, m_snapshot.todayCompleted,
                                          m_snapshot.dailyGoal);
    }

    const WidgetSnapshot &m_snapshot;
    const Date m_now;
    const Calendar &m_calendar;
    const LocalizedStrings &m_strings;
};

}

WidgetContent widgetContent(const std::optional<WidgetSnapshot> &snapshot, const PhaseArc &arc, Date now,
                            const Calendar &calendar, const LocalizedStrings &strings)
{
    if (snapshot)
        return Composer(*snapshot, now, calendar, strings).content(arc);
    WidgetContent content;
    content.title = strings.text(QStringLiteral("widget.not_running"));
    content.shortTitle = strings.text(QStringLiteral("widget.short.not_running"));
    content.hint = strings.text(QStringLiteral("widget.open"));
    content.spoken = content.title;
    return content;
}

}
