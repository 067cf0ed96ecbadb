#pragma once

#include "Manners/HoldReason.h"
#include "Manners/LingeringFact.h"
#include "Manners/MannersSettings.h"
#include "Timer/PomodoroStateMachine.h"

namespace tomcatto {

/// Holds back a break that would begin by itself, and lets it begin when nothing speaks against it any more. It looks
/// around from shortly before the end of a focus phase until the break begins. Main thread only.
class BreakHold final : public QObject
{
    Q_OBJECT

public:
    /// How long before the end it begins to look: longer than a call lingers, and enough to load what is to be asked.
    static constexpr qint64 lookAheadSeconds = 20;
    /// A call that is dialled anew, or a microphone that is let go for a moment, is still the same call.
    static constexpr std::chrono::seconds callLinger{15};
    /// A film that gives way to the next one leaves full screen for an instant, as windows do that change places.
    static constexpr std::chrono::seconds fullScreenLinger{1};
    /// Keys and pointer that rest this long have finished a sentence.
    static constexpr std::chrono::seconds typingRest{3};
    /// For somebody who never rests.
    static constexpr std::chrono::seconds longestTyping{60};

    /// Everything outlives this.
    BreakHold(PomodoroStateMachine &stateMachine, const PomodoroTimer &timer, const MannersSettings &settings,
              MainRunLoop &runLoop, const Surroundings &surroundings);
    ~BreakHold() override;

    /// Why the break that is pending waits; `nullopt` while none is held back.
    [[nodiscard]] std::optional<HoldReason> heldBy() const noexcept { return m_heldBy; }

Q_SIGNALS:
    void heldByChanged();
    /// The break that was held back has begun by itself.
    void breakBegan();

private:
    [[nodiscard]] bool mayBegin();
    [[nodiscard]] std::optional<HoldReason> reason() const;
    [[nodiscard]] bool mattersNow() const;
    void follow();
    void look();
    void decide();
    void release();
    void become(std::optional<HoldReason> heldBy);

    PomodoroStateMachine &m_stateMachine;
    const PomodoroTimer &m_timer;
    const MannersSettings &m_settings;
    MainRunLoop &m_runLoop;
    Surroundings m_surroundings;
    LingeringFact m_call;
    LingeringFact m_fullScreen;
    LingeringFact m_typing;
    Cancellable m_typingLimit;
    bool m_isTypingOver = false;
    // What was answered to the machine's question, until its break is there.
    std::optional<HoldReason> m_answered;
    std::optional<HoldReason> m_heldBy;
};

}
