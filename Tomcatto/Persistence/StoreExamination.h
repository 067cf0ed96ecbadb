#pragma once

#include "Persistence/StoreError.h"

namespace tomcatto {

/// Looks all through a store that is there, as far as SQLite's quick check goes: whether it is ours, whole, no newer
/// than this program, and open to writers. Writes nothing; others may use the store meanwhile, and one that another
/// program keeps to itself is waited for a second.
/// @return how many ended phases it holds
[[nodiscard]] StoreResult<qint64> examineStore(const QString &path);

}
