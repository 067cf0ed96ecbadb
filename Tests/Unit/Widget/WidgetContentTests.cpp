#include "Fakes/FakeUserDefaults.h"
#include "WidgetWindow/WidgetContent.h"

#include <gmock/gmock.h>

namespace {

using namespace tomcatto;

Date at(int second)
{
    return toDate(QDateTime(QDate(2025, 3, 4), QTime(14, 0), Qt::UTC).addSecs(second));
}

struct WidgetContentTest : testing::Test
{
    /// What the widget says "state title time caption" of a snapshot, for a German reader where `tag` says so.
    [[nodiscard]] WidgetContent content(const std::optional<WidgetSnapshot> &snapshot, int now,
                                        const QString &tag = QStringLiteral("en")) const
    {
        FakeUserDefaults defaults;
        const LanguageOverrideService language(defaults, {tag});
        const LocalizedStrings strings(language);
        return widgetContent(snapshot, arc, at(now), {.timeZone = QTimeZone::utc()}, strings);
    }
    /// The part of the ring that is covered after a snapshot has come.
    std::optional<double> follow(const WidgetSnapshot &snapshot, int now, double uptime)
    {
        arc.follow(snapshot, at(now), uptime);
        return arc.progress(*secondsLeft(snapshot, at(now)));
    }

    PhaseArc arc;
    const WidgetSnapshot idle{.phaseEndsAt = {},
                              .overflowStartedAt = {},
                              .staticSeconds = 1500,
                              .cyclesPerSet = 4,
                              .todayCompleted = 5,
                              .todayFocusMinutes = 125,
                              .dailyGoal = 8,
                              .streak = 12,
                              .validUntil = at(36'000)};
};

TEST_F(WidgetContentTest, SaysWhatTheDatesOfTheSnapshotMean)
{
    WidgetSnapshot running = idle;
    running.phase = WidgetPhase::work;
    running.phaseEndsAt = at(1'000);
    WidgetSnapshot paused = idle;
    paused.phase = WidgetPhase::work;
    paused.isPaused = true;
    paused.staticSeconds = 972;
    WidgetSnapshot over = paused;
    over.isPaused = false;
    over.isOverflowing = true;
    over.overflowStartedAt = at(0);
    WidgetSnapshot ceiling = over;
    ceiling.isPaused = true;
    WidgetSnapshot ready = idle;
    ready.phase = WidgetPhase::shortBreak;
    ready.isPending = true;
    ready.staticSeconds = 300;
    using State = WidgetState;
    const struct
    {
        std::optional<WidgetSnapshot> snapshot;
        int now;
        WidgetState state;
        const char *texts;
        const char *spoken;
    } cases[] = {
        {idle, 0, State::idle, "Focus|25:00|Start when you like", "Focus, 25 minutes planned, goal 5 of 8"},
        {running, 28, State::running, "Focus|16:12|until 14:16", "Focus, 16 minutes left, goal 5 of 8"},
        {running, 1'004, State::running, "Focus|00:00|until 14:16", "Focus, 0 seconds left, goal 5 of 8"},
        {running, 1'005, State::notRunning, "Tomcatto is not running||Last figures of today",
         "Tomcatto is not running, goal 5 of 8"},
        {running, 36'000, State::otherDay, "Figures of Tuesday||4 March", "Figures of Tuesday, goal 5 of 8"},
        {paused, 3'000, State::paused, "Focus, paused|16:12|When you are ready",
         "Focus, paused, 16 minutes left, goal 5 of 8"},
        {over, 161, State::overtime, "Overtime|+02:41|since 14:00", "Overtime, 2 minutes past the end, goal 5 of 8"},
        {ceiling, 9'000, State::paused, "Overtime, paused|+16:12|When you are ready",
         "Overtime, paused, 16 minutes past the end, goal 5 of 8"},
        {ready, 0, State::pending, "Break ready|05:00|Take your time",
         "Break ready, 5 minutes, waiting to be started, goal 5 of 8"},
        {std::nullopt, 0, State::notRunning, "Tomcatto is not running||", "Tomcatto is not running"},
    };
    for (const auto &[snapshot, now, state, texts, spoken] : cases) {
        const WidgetContent found = content(snapshot, now);
        EXPECT_EQ(found.state, state) << texts;
        EXPECT_EQ(QStringList({found.title, found.time, found.caption}).join(u'|').toStdString(), texts);
        EXPECT_EQ(found.spoken.toStdString(), spoken);
        EXPECT_EQ(found.isCounting, state == State::running || state == State::overtime) << texts;
    }
    EXPECT_EQ(content(running, 28, QStringLiteral("de")).caption, QStringLiteral("bis 14:16 Uhr"));
    EXPECT_EQ(content(idle, 40'000).goal.label, QStringLiteral("Goal Tuesday"));
    EXPECT_EQ(content(ready, 0).roundsDone, content(running, 28).roundsDone + 1);
}

TEST_F(WidgetContentTest, LearnsTheLengthOfAPhaseThatItSawBegin)
{
    WidgetSnapshot running = idle;
    running.phase = WidgetPhase::work;
    running.phaseEndsAt = at(1'500);
    EXPECT_EQ(follow(running, 750, 0), std::nullopt) << "begun unseen";
    arc.follow(idle, at(0), 0);
    EXPECT_EQ(follow(running, 0, 0), 0);
    running.phaseEndsAt = at(1'501);
    EXPECT_NEAR(*follow(running, 750, 750), 0.5, 0.001) << "the file's whole seconds are not a jump";
    running.phaseEndsAt = at(1'800);
    EXPECT_NEAR(*follow(running, 900, 900), 0.5, 0.001) << "five minutes more";
    running.phaseEndsAt = at(5'400);
    EXPECT_NEAR(*follow(running, 4'500, 900), 0.5, 0.001) << "the clock was set";
    WidgetSnapshot paused = running;
    paused.phaseEndsAt.reset();
    paused.isPaused = true;
    paused.staticSeconds = 900;
    follow(paused, 4'500, 900);
    EXPECT_NEAR(*follow(paused, 8'000, 4'400), 0.5, 0.001);
    running.phaseEndsAt = at(8'900);
    EXPECT_NEAR(*follow(running, 8'000, 4'400), 0.5, 0.001) << "a pause takes nothing";
    paused.staticSeconds = 400;
    EXPECT_EQ(follow(paused, 20'000, 16'400), std::nullopt) << "taken up after its writer was gone";
}

}
