#include "WidgetWindow/PhaseArc.h"

#include <algorithm>
#include <cmath>

namespace tomcatto {

namespace {

// Instants of the file are whole seconds, and it comes a moment after it was written.
constexpr double jitterSeconds = 2.5;

bool isCounting(const WidgetSnapshot &snapshot)
{
    return snapshot.phaseEndsAt || (snapshot.isOverflowing && !snapshot.isPaused);
}

bool isSamePhase(const WidgetSnapshot &one, const WidgetSnapshot &other)
{
    return one.phase == other.phase && one.cycleIndex == other.cycleIndex;
}

}

std::optional<double> secondsLeft(const WidgetSnapshot &snapshot, Date now)
{
    if (snapshot.phase == WidgetPhase::idle)
        return std::nullopt;
    if (snapshot.isOverflowing && snapshot.overflowStartedAt && !snapshot.isPaused)
        return Seconds(*snapshot.overflowStartedAt - now).count();
    if (snapshot.phaseEndsAt)
        return Seconds(*snapshot.phaseEndsAt - now).count();
    const auto still = static_cast<double>(snapshot.staticSeconds);
    return snapshot.isOverflowing ? -still : still;
}

std::optional<double> PhaseArc::length(const Seen &seen, const WidgetSnapshot &next, double left, double uptime) const
{
    const WidgetSnapshot &before = seen.snapshot;
    if (before.isPending || !isSamePhase(before, next))
        return next.isOverflowing || next.isPaused ? std::nullopt : std::optional(left);
    if (!m_length || !seen.left)
        return std::nullopt;
    const double expected = *seen.left - (isCounting(before) ? uptime - seen.uptime : 0);
    // The countdown ran out unnoticed: the program that wrote the file has ended.
    if (!before.isOverflowing && !next.isOverflowing && expected < -jitterSeconds)
        return std::nullopt;
    const double jump = left - expected;
    return std::abs(jump) > jitterSeconds && !next.isOverflowing ? *m_length + jump : *m_length;
}

void PhaseArc::follow(const std::optional<WidgetSnapshot> &snapshot, Date now, double uptime)
{
    const auto left = snapshot ? secondsLeft(*snapshot, now) : std::nullopt;
    m_length = m_seen && left && !snapshot->isPending ? length(*m_seen, *snapshot, *left, uptime) : std::nullopt;
    m_seen = snapshot ? std::optional(Seen{*snapshot, left, uptime}) : std::nullopt;
}

std::optional<double> PhaseArc::progress(double secondsLeft) const
{
    if (!m_length || *m_length <= 0)
        return std::nullopt;
    return std::clamp(1 - secondsLeft / *m_length, 0.0, 1.0);
}

}
