#include "Fakes/FakeUserDefaults.h"
#include "Recording/InFlightSessionRecovery.h"
#include "Recording/InFlightSessionStore.h"

#include <gtest/gtest.h>

using namespace tomcatto;

namespace {

constexpr double minute = 60;
const Calendar berlin{QTimeZone("Europe/Berlin"), Qt::Monday};
const Date now = dateFromSeconds(1'760'000'000.5);

Date ago(double seconds)
{
    return now - Seconds(seconds);
}

InFlightSessionMarker workMarker(double startedSecondsAgo)
{
    InFlightSessionMarker marker;
    marker.phase = QStringLiteral("work");
    marker.startedAt = ago(startedSecondsAgo);
    marker.plannedDurationSeconds = 1500;
    marker.cycleIndex = 2;
    return marker;
}

}

TEST(InFlightSessionRecovery, CountsUpToTheLastSignOfLife)
{
    struct Case
    {
        const char *name;
        InFlightSessionMarker marker;
        qint64 actual;
        double endedSecondsAgo;
        bool wasCompleted;
    };
    auto capped = workMarker(40 * minute);
    capped.lastActiveAt = ago(10 * minute);
    auto reached = capped;
    reached.reachedPlanAt = ago(15 * minute);
    auto paused = workMarker(40 * minute);
    paused.pausedAt = ago(35 * minute);
    paused.lastActiveAt = ago(1 * minute);
    auto pausedBefore = workMarker(20 * minute);
    pausedBefore.pausedSeconds = 300;
    pausedBefore.lastActiveAt = ago(5 * minute);
    auto pending = workMarker(60 * minute);
    pending.pausedAt = pending.startedAt;
    auto forgotten = workMarker(10 * 3600);
    forgotten.reachedPlanAt = ago(9 * 3600);
    auto futureSign = workMarker(10 * minute);
    futureSign.lastActiveAt = ago(-60);
    auto absurdPause = workMarker(10 * minute);
    absurdPause.pausedSeconds = 1'000'000;
    auto negativePause = workMarker(10 * minute);
    negativePause.pausedSeconds = -500;
    const Case cases[] = {
        {"never beyond the plan", capped, 1500, 15 * minute, false},
        {"beyond a reached plan", reached, 1800, 10 * minute, true},
        {"until the pause", paused, 300, 35 * minute, false},
        {"without earlier pauses", pausedBefore, 600, 5 * minute, false},
        {"waiting is not active", pending, 0, 60 * minute, false},
        {"an hour past a reached plan", forgotten, 5100, 10 * 3600 - 5100, true},
        {"a sign from the future", futureSign, 600, 0, false},
        {"a pause longer than all", absurdPause, 0, 0, false},
        {"a negative pause", negativePause, 600, 0, false},
        {"no sign at all", workMarker(10 * minute), 600, 0, false},
    };
    for (const Case &item : cases) {
        SCOPED_TRACE(item.name);
        const auto request = recoveredRequest(item.marker, now, berlin, {});
        ASSERT_TRUE(request);
        EXPECT_EQ(request->actualDurationSeconds, item.actual);
        EXPECT_NEAR(Seconds(now - request->endedAt).count(), item.endedSecondsAgo, 1e-6);
        EXPECT_EQ(request->wasCompleted, item.wasCompleted);
        EXPECT_FALSE(request->wasSkipped);
        EXPECT_EQ(request->cycleIndex, 2);
        EXPECT_EQ(request->plannedDurationSeconds, 1500);
    }
}

TEST(InFlightSessionRecovery, DropsMarkersThatMakeNoSense)
{
    auto idle = workMarker(60);
    idle.phase = QStringLiteral("idle");
    auto unknown = workMarker(60);
    unknown.phase = QStringLiteral("nap");
    auto noPlan = workMarker(60);
    noPlan.plannedDurationSeconds = 0;
    for (const auto &marker : {idle, unknown, noPlan, workMarker(-1), workMarker(91 * 86'400.0)})
        EXPECT_FALSE(recoveredRequest(marker, now, berlin, {})) << marker.phase.toStdString();
    // The 90 days are the calendar's: since then Berlin has put its clocks on by an hour.
    const Date spring = toDate(QDateTime(QDate(2025, 4, 15), QTime(12, 0), berlin.timeZone));
    auto oldest = workMarker(0);
    oldest.startedAt = toDate(QDateTime(QDate(2025, 1, 15), QTime(12, 0), berlin.timeZone));
    EXPECT_TRUE(recoveredRequest(oldest, spring, berlin, {}));
    oldest.startedAt -= Seconds(1);
    EXPECT_FALSE(recoveredRequest(oldest, spring, berlin, {}));
}

TEST(InFlightSessionStore, ReadsBackWhatItWrote)
{
    FakeUserDefaults defaults;
    InFlightSessionStore store(defaults);
    auto marker = workMarker(60.25);
    store.save(marker);
    EXPECT_EQ(store.load(), marker);
    marker.pausedSeconds = 7;
    marker.pausedAt = ago(3);
    marker.reachedPlanAt = ago(2);
    marker.lastActiveAt = ago(1);
    store.save(marker);
    EXPECT_EQ(store.load(), marker);
    store.clear();
    EXPECT_FALSE(store.load());
}

TEST(InFlightSessionStore, RubbishCountsAsNone)
{
    FakeUserDefaults defaults;
    const InFlightSessionStore store(defaults);
    const QByteArray good = encoded(workMarker(60));
    EXPECT_TRUE(decodedMarker(good));
    for (const DefaultsValue &rubbish :
         {DefaultsValue(QByteArray("[]")), DefaultsValue(QByteArray("{\"phase\":\"work\"}")), DefaultsValue(qint64{5}),
          DefaultsValue(QByteArray(good).replace("1500", "\"1500\"")), DefaultsValue(good.chopped(3)),
          DefaultsValue(QByteArray(good).replace("x\":2", "x\":18446744073709551615"))}) {
        defaults.stored.insert_or_assign(QStringLiteral("inFlightSession"), rubbish);
        EXPECT_FALSE(store.load());
    }
}
