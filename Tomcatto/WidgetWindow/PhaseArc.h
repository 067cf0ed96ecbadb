#pragma once

#include "Foundation/Date.h"
#include "Widget/WidgetSnapshot.h"

namespace tomcatto {

/// Seconds left of a snapshot's phase; below 0 once it is past the end. Nothing while idle.
[[nodiscard]] std::optional<double> secondsLeft(const WidgetSnapshot &snapshot, Date now);

/// Finds out how long the phase is, which no snapshot says: what was left when it was first seen to begin, and each
/// later jump of what is left, such as five minutes more. Of a phase that began unseen the length stays unknown. A
/// value; any thread.
class PhaseArc final
{
public:
    /// Takes the next snapshot as it comes, `nullopt` if there is none.
    /// @param now when it came, on the wall clock, which may jump
    /// @param uptime the same, as seconds that only ever grow
    void follow(const std::optional<WidgetSnapshot> &snapshot, Date now, double uptime);
    /// The part of the phase that has passed, 0 to 1; `nullopt` while the length is not known.
    [[nodiscard]] std::optional<double> progress(double secondsLeft) const;

private:
    struct Seen
    {
        WidgetSnapshot snapshot;
        std::optional<double> left;
        double uptime = 0;
    };

    [[nodiscard]] std::optional<double> length(const Seen &seen, const WidgetSnapshot &next, double left,
                                               double uptime) const;

    std::optional<Seen> m_seen;
    std::optional<double> m_length;
};

}
