#include "CommandLine/TerminalFrontEnd.h"
#include "Fakes/FakeAlerts.h"
#include "Fakes/FakeDesktopServices.h"
#include "Fakes/FakeHttpSession.h"
#include "Fakes/FakeWidgetCenter.h"
#include "Fakes/ManualClock.h"
#include "Fakes/ManualPower.h"
#include "Fakes/VideosFixture.h"
#include "Platform/Qt/JsonFileUserDefaults.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/RandomIdentifierSource.h"
#include "Suites.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

namespace tomcatto {

namespace {

/// A terminal that nobody looks at.
class UnseenTerminal final : public Terminal
{
public:
    [[nodiscard]] bool isTerminal() const override { return true; }
    [[nodiscard]] bool isInteractive() const override { return true; }
    [[nodiscard]] bool showsErrors() const override { return true; }
    [[nodiscard]] int columns() const override { return 80; }
    [[nodiscard]] Cancellable readKeys(std::function<void(QChar)> /*handler*/) override { return {}; }
    void write(const QString &text) override { benchmark::DoNotOptimize(text.toUtf8()); }
};

class NoSignals final : public ProcessSignals
{
public:
    [[nodiscard]] Cancellable onTerminationRequest(std::function<void()> /*handler*/) override { return {}; }
    [[nodiscard]] bool isTerminationRequested() const override { return false; }
    [[nodiscard]] Cancellable onTerminalChanged(std::function<void()> /*handler*/) override { return {}; }
};

/// Knows every sound, and none is heard.
class UnheardSounds final : public SystemSounds
{
public:
    [[nodiscard]] SystemSound *named(const QString & /*name*/) override { return &m_sound; }

private:
    struct Sound final : SystemSound
    {
        [[nodiscard]] bool isPlaying() const override { return false; }
        void stop() override {}
        void rewind() override {}
        void play() override {}
    };

    Sound m_sound;
};

QString freshFile(const QString &path)
{
    QFile::remove(path);
    return path;
}

/// The application without its process: every service over a history on disk, with the settings file beside it. Only
/// time is moved by hand.
class Application
{
public:
    explicit Application(const PhaseHistory &phases)
        : history(phases)
    {
    }
    ~Application()
    {
        dependencies.coreDataStack.save();
        history.restore();
    }
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    /// Runs what waits in the main loop, and what that hands over.
    static void settle()
    {
        for (int turn = 0; turn < 4; ++turn)
            QCoreApplication::processEvents();
    }
    void second()
    {
        clock.advance(std::chrono::seconds{1});
        wallClock.advance(Seconds{1});
    }
    StatusSource::Parts statusParts()
    {
        return {dependencies.stateMachine,
                dependencies.timer,
                dependencies.settings,
                dependencies.statsAggregator,
                dependencies.manners,
                dependencies.strings,
                wallClock,
                runLoop};
    }

    PhaseHistory history;
    ManualClock clock;
    ManualWallClock wallClock{PhaseHistory::now(), PhaseHistory::calendar()};
    QtMainRunLoop runLoop;
    RandomIdentifierSource identifiers;
    JsonFileUserDefaults defaults{freshFile(history.applicationSupportDirectory() + QStringLiteral("/defaults.json"))};
    ManualPower power;
    std::shared_ptr<PathBookmarks> bookmarks = std::make_shared<PathBookmarks>();
    TextStillFrame stillFrame;
    FakeLoginItem loginItem;
    FakeHttpSession http;
    FakeWidgetCenter widgetCenter;
    FileWatch fileWatch;
    FakeNotificationCenter notificationCenter;
    UnheardSounds sounds;
    AppDependencies dependencies{PlatformServices{
        clock, wallClock, runLoop, fileWatch, identifiers, defaults, power, widgetCenter, notificationCenter, sounds,
        bookmarks, stillFrame, loginItem, http, history.applicationSupportDirectory(),
        history.applicationSupportDirectory() + QStringLiteral("/widget-snapshot.json"), QString()}};
};

constexpr qint64 longPhase = 1'000'000'000;
constexpr qint64 pruneDays = 36'500;

void tickEngine(Workshop &workshop, benchmark::State &state)
{
    Application application(workshop.history(historySizes.front()));
    application.dependencies.settings.setWorkDurationSeconds(longPhase);
    application.dependencies.stateMachine.start();
    Application::settle();
    for (auto _ : state) {
        application.second();
        application.dependencies.timer.refresh();
    }
}

void tickTerminal(Workshop &workshop, benchmark::State &state)
{
    Application application(workshop.history(state.range(0)));
    const CommandTable commands;
    const StatusSource status(application.statusParts());
    UnseenTerminal terminal;
    NoSignals processSignals;
    TerminalFrontEnd frontEnd(application.dependencies, commands, status, terminal, processSignals);
    frontEnd.start();
    application.dependencies.settings.setWorkDurationSeconds(longPhase);
    application.dependencies.stateMachine.start();
    Application::settle();
    // The clock on the wall stands still: the days of the history end, and so would the streak.
    for (auto _ : state) {
        application.clock.advance(std::chrono::seconds{1});
        application.dependencies.timer.refresh();
        QCoreApplication::processEvents();
    }
}

/// What of a transition is measured.
enum class Aspect { recorderAlone, withStatus, untilOnDisk };

/// Skips a phase, waits for its record to be on disk and handles what follows from that on the main thread.
void transition(Workshop &workshop, benchmark::State &state, Aspect aspect)
{
    Application application(workshop.history(state.range(0)));
    if (aspect == Aspect::untilOnDisk)
        Yardstick::report(state, "", "one durable commit", Yardstick::durableCommit(application.history));
    else
        Yardstick::report(state, "at most 2 ms", "", 0);
    // As at every start of the application: the first write takes the history for one that others may have changed.
    application.dependencies.sessionRepository.prune(pruneDays);
    application.dependencies.coreDataStack.save();
    Application::settle();
    std::optional<StatusSource> status;
    if (aspect == Aspect::withStatus) {
        status.emplace(application.statusParts());
        // The status is gathered only while somebody listens.
        QObject::connect(&*status, &StatusSource::changed, &*status, [] {});
    }
    application.dependencies.stateMachine.start();
    Application::settle();
    for (auto _ : state) {
        application.clock.advance(std::chrono::milliseconds{100});
        application.dependencies.stateMachine.skip();
        application.dependencies.coreDataStack.save();
        Application::settle();
    }
}

void registerTransitions(Workshop &workshop, const char *name, Aspect aspect)
{
    for (const qint64 size : historySizes) {
        auto *const added = benchmark::RegisterBenchmark(
            name, [&workshop, aspect](benchmark::State &state) { transition(workshop, state, aspect); });
        added->Arg(size);
        // Otherwise processor time of the main thread: waiting for the disk costs it nothing.
        if (aspect == Aspect::untilOnDisk)
            added->UseRealTime();
    }
}

}

void registerEngineBenchmarks(Workshop &workshop)
{
    benchmark::RegisterBenchmark("tick of the engine", [&workshop](auto &state) { tickEngine(workshop, state); });
    for (const qint64 size : historySizes)
        benchmark::RegisterBenchmark("tick with the terminal's line", [&workshop](auto &state) {
            tickTerminal(workshop, state);
        })->Arg(size);
    registerTransitions(workshop, "transition and its record, main thread", Aspect::recorderAlone);
    registerTransitions(workshop, "transition, record and new status, main thread", Aspect::withStatus);
    registerTransitions(workshop, "transition until its record is on disk", Aspect::untilOnDisk);
}

}
