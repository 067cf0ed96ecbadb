#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace tomcatto {

/// What changes with every tick.
struct PanelClock
{
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text FINAL)
    Q_PROPERTY(double progress MEMBER progress FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)

public:
    /// Minutes and seconds, with a plus in overtime.
    QString text;
    /// Elapsed part of the plan, 0 to 1.
    double progress = 0;
    /// Phase and time in words, for a screen reader.
    QString name;

    bool operator==(const PanelClock &) const = default;
};

/// The phase and the controls that go with it.
struct PanelPhase
{
    Q_GADGET
    Q_PROPERTY(QString theme MEMBER theme FINAL)
    Q_PROPERTY(QString headline MEMBER headline FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(QString caption MEMBER caption FINAL)
    Q_PROPERTY(bool isPaused MEMBER isPaused FINAL)
    Q_PROPERTY(bool isPending MEMBER isPending FINAL)
    Q_PROPERTY(bool wasAway MEMBER wasAway FINAL)
    Q_PROPERTY(QString primaryText MEMBER primaryText FINAL)
    Q_PROPERTY(QString primarySymbol MEMBER primarySymbol FINAL)
    Q_PROPERTY(bool canReset MEMBER canReset FINAL)
    Q_PROPERTY(bool canSkip MEMBER canSkip FINAL)
    Q_PROPERTY(bool showsTakeBreak MEMBER showsTakeBreak FINAL)
    Q_PROPERTY(bool showsExtend MEMBER showsExtend FINAL)

public:
    /// Whose colours: "idle", "work", "shortBreak", "longBreak" or "overtime".
    QString theme;
    /// The line between the header's buttons.
    QString headline;
    /// The phase's name over the time, and the symbol before it; empty for none.
    QString name;
    QString symbol;
    /// Below the time where the extend chip does not show; may be empty.
    QString caption;
    /// Paused by the user; a phase that waits for its start is pending instead.
    bool isPaused = false;
    bool isPending = false;
    /// Paused because nobody was there, which the headline tells.
    bool wasAway = false;
    QString primaryText;
    QString primarySymbol;
    bool canReset = false;
    bool canSkip = false;
    /// Take break stands in place of skip.
    bool showsTakeBreak = false;
    bool showsExtend = false;

    bool operator==(const PanelPhase &) const = default;
};

/// Rounds of the set, today's goal and the streak.
struct PanelStrip
{
    Q_GADGET
    Q_PROPERTY(int rounds MEMBER rounds FINAL)
    Q_PROPERTY(int roundsDone MEMBER roundsDone FINAL)
    Q_PROPERTY(bool isRoundCurrent MEMBER isRoundCurrent FINAL)
    Q_PROPERTY(QString roundCompact MEMBER roundCompact FINAL)
    Q_PROPERTY(QString roundLabel MEMBER roundLabel FINAL)
    Q_PROPERTY(QString goalCount MEMBER goalCount FINAL)
    Q_PROPERTY(QString goalRest MEMBER goalRest FINAL)
    Q_PROPERTY(QString goalName MEMBER goalName FINAL)
    Q_PROPERTY(QString streak MEMBER streak FINAL)
    Q_PROPERTY(QString streakName MEMBER streakName FINAL)

public:
    int rounds = 1;
    int roundsDone = 0;
    /// Whether the round after the done ones is under way or next.
    bool isRoundCurrent = false;
    /// "7 / 12", for sets too long for markers.
    QString roundCompact;
    QString roundLabel;
    /// Phases done today, and the rest of the figure after that number.
    QString goalCount;
    QString goalRest;
    QString goalName;
    QString streak;
    QString streakName;

    bool operator==(const PanelStrip &) const = default;
};

}

Q_DECLARE_METATYPE(tomcatto::PanelClock)
Q_DECLARE_METATYPE(tomcatto::PanelPhase)
Q_DECLARE_METATYPE(tomcatto::PanelStrip)
