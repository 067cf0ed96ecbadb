#pragma once

#include "Foundation/Calendar.h"
#include "Localization/LocalizedStrings.h"
#include "WidgetWindow/PhaseArc.h"

namespace tomcatto {

/// What a widget shows of its phase.
enum class WidgetState {
    idle,
    pending,
    running,
    paused,
    overtime,
    /// The figures are of another day.
    otherDay,
    /// The application is gone, or has never been there.
    notRunning,
};

/// A number with its unit, or what stands between numbers.
struct WidgetTextPart
{
    QString text;
    bool isUnit = false;

    bool operator==(const WidgetTextPart &) const = default;
};

/// A figure over what it counts.
struct WidgetFigure
{
    QList<WidgetTextPart> parts;
    QString label;

    bool operator==(const WidgetFigure &) const = default;
};

/// Everything that a widget says at one moment, in any size. A value.
struct WidgetContent
{
    WidgetState state = WidgetState::notRunning;
    /// Whose colours and ears are shown.
    WidgetPhase phase = WidgetPhase::work;
    bool isOverflowing = false;
    /// Part of the ring that is covered; nothing for the track alone.
    std::optional<double> progress;
    /// "Focus, paused", and where there is little room, "Paused".
    QString title;
    QString shortTitle;
    QString time;
    QString caption;
    /// A second line, where figures are old.
    QString hint;
    /// Whether there are figures at all; without, all that follows but the last two is empty.
    bool hasFigures = false;
    int rounds = 0;
    int roundsDone = 0;
    bool isRoundCurrent = false;
    QString roundLabel;
    QString roundCompact;
    WidgetFigure focus;
    WidgetFigure goal;
    WidgetFigure streak;
    WidgetPhase nextPhase = WidgetPhase::work;
    QString nextName;
    QString nextLabel;
    /// All of it for a screen reader.
    QString spoken;
    /// Whether it says another thing with the next second.
    bool isCounting = false;

    [[nodiscard]] bool isOld() const { return state == WidgetState::otherDay || state == WidgetState::notRunning; }
};

/// The content of one moment.
/// @param snapshot `nullopt` if there is none that can be read
/// @param calendar of the person who looks
[[nodiscard]] WidgetContent widgetContent(const std::optional<WidgetSnapshot> &snapshot, const PhaseArc &arc, Date now,
                                          const Calendar &calendar, const LocalizedStrings &strings);

}
