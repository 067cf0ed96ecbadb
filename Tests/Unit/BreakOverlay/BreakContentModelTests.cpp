#include "BreakOverlay/BreakOverlayModel.h"
#include "BreakOverlay/BreakPreviewModel.h"
#include "Fakes/CapturedLog.h"
#include "Fakes/EngineFixture.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

struct Models : EngineFixture
{
    LanguageOverrideService language{defaults, {u"en"_s}};
    LocalizedStrings strings{language};
    BreakOverlayServices services{machine, timer, settings, strings};
    BreakVideoSource videos;
};

TEST(BreakOverlayModel, ShowsTheBreakAndDrivesTheStateMachine)
{
    Models models;
    models.settings.setCyclesBeforeLongBreak(2);
    models.machine.start();
    models.machine.skip();
    BreakOverlayModel model(models.services, models.videos, false);
    EXPECT_EQ(model.title(), u"Short break"_s);
    EXPECT_EQ(model.time(), u"05:00"_s);
    EXPECT_TRUE(model.canExtend());
    EXPECT_FALSE(model.canStart());
    models.pass(102s);
    EXPECT_EQ(model.time(), u"03:18"_s);
    EXPECT_EQ(model.spokenTime(), u"Break, 3 minutes 18 seconds left"_s);
    EXPECT_DOUBLE_EQ(model.progress(), 198.0 / 300);

    model.extend();
    EXPECT_EQ(model.time(), u"08:18"_s);
    EXPECT_DOUBLE_EQ(model.progress(), 498.0 / 600);

    // Work begins while the window fades: it keeps what it showed.
    models.machine.skip();
    model.extend();
    EXPECT_EQ(model.time(), u"08:18"_s);
    EXPECT_EQ(model.title(), u"Short break"_s);
    EXPECT_EQ(models.machine.currentPlannedSeconds(), 1500);

    models.settings.setAutoStartBreaks(false);
    models.pass(1500s);
    EXPECT_EQ(model.phase(), u"longBreak"_s);
    EXPECT_EQ(model.title(), u"Your break is ready"_s);
    EXPECT_TRUE(model.canStart());
    EXPECT_FALSE(model.canExtend());
    models.pass(60s);
    EXPECT_EQ(model.time(), u"15:00"_s);
    model.start();
    EXPECT_FALSE(models.machine.isPaused());
    EXPECT_EQ(model.title(), u"Long break"_s);
    models.language.setLanguage(SelectedLanguage::de);
    EXPECT_EQ(model.title(), u"Lange Pause"_s);
    models.settings.setLongBreakDurationSeconds(3900);
    models.machine.reset();
    models.machine.start();
    models.machine.skip();
    models.machine.skip();
    models.machine.skip();
    EXPECT_EQ(model.spokenTime(), u"Pause, noch 1 Stunde 5 Minuten"_s) << "worded as in the panel";
}

TEST(BreakOverlayModel, AsksForItsVideoOnceItIsOnScreen)
{
    Models models;
    std::vector<std::function<void(const BreakVideo &)>> asked;
    models.videos.next = [&asked](const auto &done) { asked.push_back(done); };
    const BreakVideo video{u"file:///videos/a.mp4"_s, u"file:///videos/a.mp4.jpg"_s};
    BreakOverlayModel model(models.services, models.videos, false);
    EXPECT_TRUE(asked.empty());
    model.bodyAppeared();
    model.bodyAppeared();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(model.videoUrl().isEmpty());
    asked.front()(video);
    EXPECT_EQ(model.videoUrl(), video.url);
    EXPECT_EQ(model.posterUrl(), QUrl(u"file:///videos/a.mp4.jpg"_s));
    const CapturedLog log;
    model.videoFailed(u"no such codec"_s);
    EXPECT_EQ(log.count(LogLevel::error), 1);

    EXPECT_FALSE(model.isMuted());
    model.toggleMute();
    EXPECT_TRUE(model.isMuted());

    models.settings.setSoundEnabled(false);
    auto bare = std::make_unique<BreakOverlayModel>(models.services, models.videos, false);
    EXPECT_TRUE(bare->isMuted());
    bare->bodyAppeared();
    bare.reset();
    asked.back()(video);
    EXPECT_EQ(asked.size(), 2U) << "an answer that comes after the window is nobody's";
}

TEST(BreakPreviewModel, CountsByItselfAndStopsAtZero)
{
    Models models;
    models.settings.setShortBreakDurationSeconds(3);
    BreakPreviewModel model(models.settings, models.strings, models.runLoop, models.videos);
    EXPECT_EQ(model.time(), u"00:03"_s);
    models.pass(1s);
    EXPECT_EQ(model.time(), u"00:02"_s);
    EXPECT_DOUBLE_EQ(model.progress(), 2.0 / 3);
    models.pass(5s);
    EXPECT_EQ(model.time(), u"00:00"_s);
    EXPECT_FALSE(model.canStart() || model.canExtend());
    EXPECT_EQ(models.machine.currentPhase(), PomodoroPhase::idle);
}

}
}
