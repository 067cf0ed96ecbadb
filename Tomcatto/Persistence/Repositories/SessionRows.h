#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Persistence/StoreConnection.h"

namespace tomcatto {

// How ended phases stand in the store: what every statement that writes or reads whole ones shares.

/// The values of a new record, in the order of its columns. A value that does not fit its column is fatal.
[[nodiscard]] std::vector<StoreValue> sessionValues(const PomodoroSessionInsertRequest &request);
/// The values of a record as it is, what is missing as missing.
[[nodiscard]] std::vector<StoreValue> sessionValues(const PomodoroSessionRecord &record);
/// The record of a row whose columns begin with those of the table.
[[nodiscard]] PomodoroSessionRecord sessionRecord(const StoreRow &row);

}
