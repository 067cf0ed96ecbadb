#pragma once

namespace tomcatto::sessionQueries {

// Every statement on the ended phases. Each has an index that also gives its order, except the one that takes all
// and the one that looks for an identifier.

inline constexpr const char *insert =
    "INSERT INTO PomodoroSessionRecord (id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds,"
    " cycleIndex, wasCompleted, wasSkipped) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)";

/// The same, unless a record of the phase with that start is there.
inline constexpr const char *insertRecovered =
    "INSERT INTO PomodoroSessionRecord (id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds,"
    " cycleIndex, wasCompleted, wasSkipped) SELECT ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9"
    " WHERE NOT EXISTS (SELECT 1 FROM PomodoroSessionRecord WHERE phase = ?2 AND startedAt = ?3)";

/// ?1 start, ?2 end, ?3 limit, −1 for none.
inline constexpr const char *inInterval =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord WHERE startedAt >= ?1 AND startedAt < ?2"
    " ORDER BY startedAt DESC, rowid DESC LIMIT ?3";

/// ?1 start, ?2 end, ?3 limit, −1 for none, ?4 phase.
inline constexpr const char *inIntervalOfPhase =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord WHERE startedAt >= ?1 AND startedAt < ?2 AND phase = ?4"
    " ORDER BY startedAt DESC, rowid DESC LIMIT ?3";

/// With the number of the last row of all, as the rows were in the same moment.
inline constexpr const char *completedWorkStamps =
    "SELECT startedAt, actualDurationSeconds, (SELECT max(rowid) FROM PomodoroSessionRecord)"
    " FROM PomodoroSessionRecord WHERE phase = 'work' AND wasCompleted = 1 ORDER BY startedAt";

/// Every row after ?1, and whether it is completed work.
inline constexpr const char *addedAfterRow =
    "SELECT startedAt, actualDurationSeconds, rowid, phase = 'work' AND wasCompleted = 1"
    " FROM PomodoroSessionRecord WHERE rowid > ?1 ORDER BY rowid";

inline constexpr const char *completedWorkCount =
    "SELECT count(*) FROM PomodoroSessionRecord WHERE phase = 'work' AND wasCompleted = 1";

/// ?1 the earliest start.
inline constexpr const char *completedWorkSince =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord WHERE phase = 'work' AND wasCompleted = 1 AND startedAt >= ?1"
    " ORDER BY startedAt";

inline constexpr const char *earliestStart =
    "SELECT startedAt FROM PomodoroSessionRecord WHERE startedAt IS NOT NULL ORDER BY startedAt LIMIT 1";

inline constexpr const char *all =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord";

/// ?1 start, ?2 end, ?3 how long a phase lasts at most by its stamps: the earliest one that shares time with the
/// interval. A phase ends at its stamp, or after its actual seconds where that is missing or was set by another clock.
inline constexpr const char *overlapping =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped FROM PomodoroSessionRecord WHERE startedAt > ?1 - ?3 AND startedAt < ?2"
    " AND +phase IN ('work', 'shortBreak', 'longBreak')"
    " AND CASE WHEN typeof(endedAt) IN ('real', 'integer') AND endedAt BETWEEN startedAt AND startedAt + ?3"
    " THEN endedAt ELSE startedAt + actualDurationSeconds END > max(startedAt, ?1)"
    " ORDER BY startedAt LIMIT 1";

/// ?1 the id. From the end of the table, where those lie that are looked for as a rule.
inline constexpr const char *withIdentifier =
    "SELECT id, phase, startedAt, endedAt, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted,"
    " wasSkipped, rowid FROM PomodoroSessionRecord WHERE id = ?1 ORDER BY rowid DESC LIMIT 1";

/// ?1 start in whole seconds, ?2 actual seconds, ?3 phase, "unknown" for all that are not known, ?4 how it ended: how
/// many an exported file would show alike.
inline constexpr const char *countEqual =
    "SELECT count(*) FROM PomodoroSessionRecord WHERE startedAt >= ?1 AND startedAt < ?1 + 1"
    " AND actualDurationSeconds = ?2"
    " AND CASE WHEN phase IN ('work', 'shortBreak', 'longBreak') THEN phase ELSE 'unknown' END = ?3"
    " AND CASE WHEN wasCompleted = 1 THEN 0 WHEN wasSkipped = 1 THEN 1 ELSE 2 END = ?4";

/// ?1 the row's number.
inline constexpr const char *removeRow = "DELETE FROM PomodoroSessionRecord WHERE rowid = ?1";

/// ?1 the cutoff; what started then stays.
inline constexpr const char *prune = "DELETE FROM PomodoroSessionRecord WHERE startedAt < ?1";

}
