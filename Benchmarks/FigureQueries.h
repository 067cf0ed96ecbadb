#pragma once

#include "Foundation/Date.h"

#include <QtCore/QString>
#include <string>
#include <vector>

namespace tomcatto {

/// The figures of the statistics as SQL for the `sqlite3` shell, with the local days of its time zone.
namespace figureQueries {

/// A statement with ?1, ?2, … replaced by the values, which are numbers, or texts in quotes.
[[nodiscard]] std::string filled(const char *sql, const std::vector<std::string> &values);
/// The number as SQL.
[[nodiscard]] std::string literal(Date date);

/// Start and length of every completed work phase.
inline constexpr const char *stamps = "SELECT startedAt, actualDurationSeconds FROM PomodoroSessionRecord"
                                      " WHERE phase = 'work' AND wasCompleted = 1 ORDER BY startedAt";
/// Completed work phases that started in the interval, and their minutes.
[[nodiscard]] std::string count(const DateInterval &interval);
[[nodiscard]] std::string minutes(const DateInterval &interval);
/// Completed work phases of each day from `since` on.
[[nodiscard]] std::string days(Date since);
/// Minutes of each unit from `since` on; the unit as a format of `strftime`.
[[nodiscard]] std::string buckets(Date since, const std::string &unit);
/// Every phase with the fields of an exported file, newest first, as comma-separated text.
[[nodiscard]] std::string csv();
/// The lengths of the longest run of days with completed work, and of the last one.
[[nodiscard]] std::string longestRun();
[[nodiscard]] std::string lastRun();

}

}
