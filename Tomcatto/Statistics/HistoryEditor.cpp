#include "Statistics/HistoryEditor.h"

#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/WallClock.h"

namespace tomcatto {

namespace {

using Reason = AddRefusal::Reason;

bool overlaps(const EndedPhase &phase, const EndedPhase &other)
{
    return other.startedAt < phase.endedAt && (!other.endedAt || other.endedAt > phase.startedAt);
}

AddRefusal refusal(const SessionEdits::Found &taken)
{
    if (!taken)
        return {.reason = Reason::store, .problem = taken.error().description()};
    const std::optional<PomodoroSessionRecord> &record = *taken;
    auto phase = record ? endedPhase(*record) : std::nullopt;
    if (phase && phase->startedAt && !phase->endedAt)
        phase->endedAt = *phase->startedAt + std::chrono::seconds(phase->actualSeconds);
    return {.reason = Reason::overlap, .phase = phase};
}

PomodoroSessionInsertRequest request(const EndedPhase &phase)
{
    return {.id = phase.id,
            .phase = phase.phase,
            .startedAt = phase.startedAt.value_or(Date()),
            .endedAt = phase.endedAt.value_or(Date()),
            .plannedDurationSeconds = phase.plannedSeconds,
            .actualDurationSeconds = phase.actualSeconds,
            .cycleIndex = phase.cycleIndex,
            .wasCompleted = phase.wasCompleted,
            .wasSkipped = phase.wasSkipped};
}

}

HistoryEditor::HistoryEditor(CoreDataStack &stack, const WallClock &wallClock, IdentifierSource &identifiers,
                             UnrecordedPhase unrecordedPhase)
    : m_edits(stack)
    , m_wallClock(wallClock)
    , m_identifiers(identifiers)
    , m_unrecordedPhase(std::move(unrecordedPhase))
{
}

std::expected<EndedPhase, AddRefusal> HistoryEditor::checked(Date start, qint64 minutes) const
{
    auto phase = checkedOutsideStore(start, minutes);
    if (!phase)
        return phase;
    const auto taken = m_edits.overlapping({start, phase->endedAt.value_or(start)});
    if (!taken || *taken)
        return std::unexpected(refusal(taken));
    return phase;
}

std::expected<EndedPhase, AddRefusal> HistoryEditor::add(Date start, qint64 minutes, const std::optional<QUuid> &id)
{
    auto phase = checkedOutsideStore(start, minutes);
    if (!phase)
        return phase;
    phase->id = id ? *id : m_identifiers.next();
    const auto taken = m_edits.insertUnlessOverlapping(request(*phase));
    if (!taken || *taken)
        return std::unexpected(refusal(taken));
    return phase;
}

StoreResult<std::optional<PomodoroSessionRecord>> HistoryEditor::remove(const QUuid &id)
{
    return m_edits.remove(id);
}

StoreResult<void> HistoryEditor::restore(const PomodoroSessionRecord &record)
{
    return m_edits.restore(record);
}

std::expected<EndedPhase, AddRefusal> HistoryEditor::checkedOutsideStore(Date start, qint64 minutes) const
{
    if (minutes < shortestMinutes || minutes > longestMinutes)
        return std::unexpected(AddRefusal{.reason = Reason::length});
    const std::chrono::seconds length = std::chrono::minutes(minutes);
    const EndedPhase phase{.id = {},
                           .phase = PomodoroPhase::working,
                           .startedAt = start,
                           .endedAt = start + length,
                           .plannedSeconds = length.count(),
                           .actualSeconds = length.count(),
                           .wasCompleted = true};
    // A start that is not a number is not before now either.
    if (!(phase.endedAt <= m_wallClock.now()) || !Calendar::reaches(start))
        return std::unexpected(AddRefusal{.reason = Reason::future});
    if (const auto unrecorded = m_unrecordedPhase(); unrecorded && overlaps(phase, *unrecorded))
        return std::unexpected(AddRefusal{.reason = Reason::overlap, .phase = unrecorded});
    return phase;
}

}
