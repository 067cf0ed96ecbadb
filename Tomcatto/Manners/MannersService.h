#pragma once

#include "Foundation/Date.h"
#include "Manners/HoldReason.h"
#include "Manners/MannersSettings.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/Surroundings.h"
#include "Platform/Ports/WallClock.h"
#include "Timer/PomodoroStateMachine.h"

#include <optional>

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
        /// Nothing where there is no desktop.
        std::optional<Surroundings> surroundings;
    };

    explicit MannersService(const Parts &parts, QObject *parent = nullptr);

    [[nodiscard]] MannersSettings &settings() noexcept { return m_settings; }
    [[nodiscard]] const MannersSettings &settings() const noexcept { return m_settings; }

    /// Why the break that is pending waits; nothing where none is held back.
    [[nodiscard]] std::optional<HoldReason> heldBy() const noexcept { return m_heldBy; }
    /// Since when the person was away, from their return until the paused focus phase goes on or ends.
    [[nodiscard]] std::optional<Date> awaySince() const noexcept { return m_awaySince; }
    /// Whether a break comes so soon that it is told: the pill breathes.
    [[nodiscard]] bool isBreakNear() const noexcept { return m_isBreakNear; }

    /// Goes on with the focus phase that was paused.
    void resumeAfterAway();
    /// Ends it, and begins the break at once.
    void takeBreakAfterAway();

Q_SIGNALS:
    void heldByChanged();
    void awaySinceChanged();
    void isBreakNearChanged();

private:
    Parts m_parts;
    MannersSettings m_settings;
    std::optional<HoldReason> m_heldBy;
    std::optional<Date> m_awaySince;
    bool m_isBreakNear = false;
};

}
