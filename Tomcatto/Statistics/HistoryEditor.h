#pragma once

#include "Persistence/Repositories/SessionEdits.h"
#include "Statistics/EndedPhase.h"
#include "Timer/SettingsCatalog.h"

#include <expected>
#include <functional>

namespace tomcatto {

class IdentifierSource;
class WallClock;

/// Why a focus phase is not added.
struct AddRefusal
{
    enum class Reason {
        /// The minutes are outside the bounds.
        length,
        /// It would end after now.
        future,
        /// `phase` takes the time.
        overlap,
        /// The store failed; `problem` says how.
        store,
    };

    Reason reason = Reason::store;
    /// The phase that is there already; without an end where it is still running.
    std::optional<EndedPhase> phase = {};
    /// One line for people, in English.
    QString problem = {};

    bool operator==(const AddRefusal &) const = default;
};

/// Sets the history right by hand: adds a focus phase that was forgotten, removes a wrong one and puts it back. What
/// was changed is on disk when a call returns; the history announces it like any save, in a later turn of the main
/// loop. Main thread only.
class HistoryEditor final
{
public:
    /// The bounds of an added phase's length, both inclusive: those of the controls for the length of focus.
    static constexpr qint64 shortestMinutes = 1;
    static constexpr qint64 longestMinutes = longestDurationMinutes;

    /// Gives the phase that has no record yet: the one that is running, without an end, or one that an earlier run left
    /// behind, with the end that it will be recorded with. Nothing if there is none.
    using UnrecordedPhase = std::function<std::optional<EndedPhase>()>;

    /// All outlive the editor.
    HistoryEditor(CoreDataStack &stack, const WallClock &wallClock, IdentifierSource &identifiers,
                  UnrecordedPhase unrecordedPhase);

    /// Whether a focus phase could be added. It must not share time with another phase of any kind, but may touch one.
    /// @return the phase as it would be added, without an identifier
    [[nodiscard]] std::expected<EndedPhase, AddRefusal> checked(Date start, qint64 minutes) const;
    /// Adds a completed focus phase whose plan was its length. @return the phase as it is stored
    /// @param id the identifier that it gets; a fresh one unless given
    [[nodiscard]] std::expected<EndedPhase, AddRefusal> add(Date start, qint64 minutes,
                                                            const std::optional<QUuid> &id = {});
    /// Removes a phase. @return all that was stored of it, to put it back; nothing if no phase has that identifier
    [[nodiscard]] StoreResult<std::optional<PomodoroSessionRecord>> remove(const QUuid &id);
    /// Puts back a phase that was removed, as it was. Does not ask whether its time is still free.
    [[nodiscard]] StoreResult<void> restore(const PomodoroSessionRecord &record);

private:
    [[nodiscard]] std::expected<EndedPhase, AddRefusal> checkedOutsideStore(Date start, qint64 minutes) const;

    SessionEdits m_edits;
    const WallClock &m_wallClock;
    IdentifierSource &m_identifiers;
    UnrecordedPhase m_unrecordedPhase;
};

}
