#include "Fakes/EngineFixture.h"
#include "Fakes/ManualPower.h"
#include "Fakes/RecordingWriter.h"
#include "Power/SleepWakeCoordinator.h"
#include "Recording/PomodoroSession.h"

#include <gtest/gtest.h>
#include <QtCore/QRandomGenerator>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

/// The engine, recorder and sleep policy under random operations, with what must hold after each of them.
class EngineModel final : public EngineFixture
{
public:
    explicit EngineModel(quint32 seed)
        : m_random(seed)
    {
        coordinator.start();
        settings.setWorkDurationSeconds(20);
        settings.setShortBreakDurationSeconds(7);
        settings.setLongBreakDurationSeconds(11);
    }

    void step()
    {
        const std::size_t seen = transitions.size();
        const qint64 cycles = settings.cyclesBeforeLongBreak();
        operate();
        runLoop.drain();
        for (std::size_t index = seen; index < transitions.size(); ++index)
            checkSequence(transitions[index], cycles);
        checkState();
        checkRecords();
    }

private:
    void operate()
    {
        switch (m_random.bounded(16)) {
        case 0:
            machine.start();
            break;
        case 1:
            machine.pause();
            break;
        case 2:
            machine.resume();
            break;
        case 3:
            machine.skip();
            break;
        case 4:
            machine.takeBreak();
            break;
        case 5:
            if (m_random.bounded(4) == 0)
                machine.reset();
            break;
        case 6:
            machine.extend(m_random.bounded(-5, 301));
            break;
        case 7:
            changeSettings();
            break;
        case 8:
            sleep();
            break;
        case 9:
            wallClock.advance(Seconds(m_random.bounded(-100'000, 100'000)));
            break;
        case 10:
            stalled(std::chrono::milliseconds(m_random.bounded(m_random.bounded(10) == 0 ? 4'000'000 : 5'000)));
            break;
        default:
            passed(std::chrono::milliseconds(m_random.bounded(9'000)));
            break;
        }
    }

    void changeSettings()
    {
        settings.setAutoStartBreaks(m_random.bounded(2) == 0);
        settings.setAutoStartFocus(m_random.bounded(2) == 0);
        settings.setOverflowEnabled(m_random.bounded(2) == 0);
        settings.setCyclesBeforeLongBreak(m_random.bounded(1, 5));
        settings.setWorkDurationSeconds(m_random.bounded(0, 30));
        settings.setShortBreakDurationSeconds(m_random.bounded(1, 9));
    }

    void sleep()
    {
        power.sleep();
        EXPECT_TRUE(machine.currentPhase() == PomodoroPhase::idle || machine.isPaused());
        EXPECT_FALSE(power.isSleepDelayed);
        stalled(std::chrono::milliseconds(m_random.bounded(200'000)));
        power.wake();
    }

    void passed(std::chrono::milliseconds span)
    {
        runLoop.advance(span, [this](std::chrono::milliseconds part) { stalled(part); });
    }

    void stalled(std::chrono::milliseconds span)
    {
        if (machine.currentPhase() != PomodoroPhase::idle && !machine.isPaused())
            m_unpaused += span;
        stall(span);
    }

    void checkSequence(const PhaseTransition &transition, qint64 cycles)
    {
        ASSERT_NE(transition.previous, transition.current);
        if (transition.current == PomodoroPhase::idle) {
            EXPECT_EQ(transition.cycleIndex, 0);
        } else if (transition.previous == PomodoroPhase::working) {
            const bool isLong = (transition.cycleIndex + 1) % cycles == 0;
            EXPECT_EQ(transition.current, isLong ? PomodoroPhase::longBreak : PomodoroPhase::shortBreak);
            EXPECT_EQ(transition.cycleIndex, m_cycleIndex);
        } else {
            EXPECT_EQ(transition.current, PomodoroPhase::working);
            const bool fromIdle = transition.previous == PomodoroPhase::idle;
            EXPECT_EQ(transition.cycleIndex, fromIdle ? m_cycleIndex : (m_cycleIndex + 1) % cycles);
        }
        m_cycleIndex = transition.cycleIndex;
        m_phasesLeft += transition.previous != PomodoroPhase::idle ? 1 : 0;
    }

    void checkState() const
    {
        EXPECT_GE(timer.remainingSeconds(), 0);
        EXPECT_GE(timer.overflowSeconds(), 0);
        EXPECT_FALSE(timer.remainingSeconds() > 0 && timer.overflowSeconds() > 0);
        EXPECT_TRUE(!machine.isPhasePending() || machine.isPaused());
        EXPECT_TRUE(!machine.isOverflowing() || machine.currentPhase() == PomodoroPhase::working);
        const bool runs = machine.currentPhase() != PomodoroPhase::idle && !machine.isPaused();
        EXPECT_EQ(timer.isRunning(), runs) << "the clock runs with a running phase alone";
        // The tick and the recorder's heartbeat, each only while a phase runs.
        EXPECT_EQ(runLoop.activeTimers(), runs ? 2U : 0U);
        EXPECT_EQ(defaults.stored.contains(QStringLiteral("inFlightSession")),
                  machine.currentPhase() != PomodoroPhase::idle);
    }

    void checkRecords()
    {
        EXPECT_EQ(writer.requests.size(), m_phasesLeft) << "one record for each phase left";
        for (; m_checkedRecords < writer.requests.size(); ++m_checkedRecords) {
            const auto &record = writer.requests[m_checkedRecords];
            m_recorded += std::chrono::seconds(record.actualDurationSeconds);
            EXPECT_GE(record.actualDurationSeconds, 0);
            EXPECT_FALSE(record.wasCompleted && record.wasSkipped);
        }
        EXPECT_LE(m_recorded, m_unpaused) << "no record overlaps another or counts a pause";
    }

    QRandomGenerator m_random;
    ManualPower power;
    RecordingWriter writer;
    InFlightSessionStore store{defaults};
    PomodoroSession session{machine, timer, settings, writer, store, {clock, wallClock, runLoop, identifiers}};
    SleepWakeObserver observer{power, clock};
    SleepWakeCoordinator coordinator{machine, timer, observer};
    std::chrono::milliseconds m_unpaused{0};
    std::chrono::milliseconds m_recorded{0};
    std::size_t m_phasesLeft = 0;
    std::size_t m_checkedRecords = 0;
    qint64 m_cycleIndex = 0;
};

}

TEST(EngineModel, HoldsUnderRandomOperations)
{
    const int operations = qEnvironmentVariableIntValue("TOMCATTO_MODEL_OPERATIONS");
    const int seed = qEnvironmentVariableIntValue("TOMCATTO_SEED");
    const int count = operations > 0 ? operations : 20'000;
    const quint32 start =
        seed > 0 ? static_cast<quint32>(seed) : QRandomGenerator::global()->generate() % 1'000'000 + 1;
    std::cout << "TOMCATTO_SEED=" << start << ", " << count << " operations\n";
    EngineModel model(start);
    for (int index = 0; index < count && !testing::Test::HasFailure(); ++index) {
        SCOPED_TRACE("operation " + std::to_string(index) + " of seed " + std::to_string(start));
        model.step();
    }
}
