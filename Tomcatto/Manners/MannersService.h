#pragma once

#include "Manners/AwayPause.h"
#include "Manners/BreakHold.h"
#include "Manners/WordBefore.h"

#include <memory>

namespace tomcatto {

/// Knows when not to come: holds a break that is due back during calls, full screen and half a sentence, pauses a focus
/// phase that nobody sits at, and says a word before a break. With all of it off it looks at nothing. Main thread only.
class MannersService final : public QObject
{
    Q_OBJECT

public:
    /// What it works with; all of it outlives the service.
    struct Parts
    {
        PomodoroStateMachine &stateMachine;
        PomodoroTimer &timer;
        UserDefaults &defaults;
        WallClock &wallClock;
        MainRunLoop &runLoop;
        /// Not set without a desktop.
        std::optional<Surroundings> surroundings;
    };

    explicit MannersService(const Parts &parts, QObject *parent = nullptr);

    [[nodiscard]] MannersSettings &settings() noexcept { return m_settings; }
    [[nodiscard]] const MannersSettings &settings() const noexcept { return m_settings; }

    /// Why the break that is pending waits; `nullopt` while none is held back.
    [[nodiscard]] std::optional<HoldReason> heldBy() const noexcept { return m_hold ? m_hold->heldBy() : std::nullopt; }
    /// Since when the person was away, from their return until the paused focus phase goes on or ends.
    [[nodiscard]] std::optional<Date> awaySince() const { return m_away ? m_away->awaySince() : std::nullopt; }
    /// Whether the focus phase is paused because nobody sat at it: then nothing but the person goes on with it.
    [[nodiscard]] bool hasPaused() const noexcept { return m_away && m_away->hasPaused(); }
    /// Whether a break comes so soon that it is told: the pill breathes.
    [[nodiscard]] bool isBreakNear() const noexcept { return m_word.isBreakNear(); }

    /// Goes on with the focus phase that was paused, while `awaySince` tells of one.
    void resumeAfterAway();
    /// Ends it, and begins the break at once.
    void takeBreakAfterAway();

    /// The machine sleeps; called before the running phase is paused for it.
    void prepareForSleep();
    /// The machine is awake; called after what becomes of the phase was decided.
    void wakeUp();

Q_SIGNALS:
    void heldByChanged();
    /// The break that was held back has begun by itself.
    void heldBreakBegan();
    void awaySinceChanged();
    void isBreakNearChanged();

private:
    Parts m_parts;
    MannersSettings m_settings;
    WordBefore m_word;
    std::unique_ptr<BreakHold> m_hold;
    std::unique_ptr<AwayPause> m_away;
};

}
