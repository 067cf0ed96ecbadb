#pragma once

#include "Foundation/Refusal.h"
#include "Persistence/StoreError.h"

namespace tomcatto {

/// As the error, why a copy of the store is not made, or not taken for the store.
template<typename T>
using StoreCopyResult = std::expected<T, Refusal>;

/// Of a file that failed, for a reason that follows its name.
[[nodiscard]] std::unexpected<Refusal> refused(const QString &file, const QString &reason);

/// Whether two paths lead to the same file, by whatever name or link.
[[nodiscard]] bool isSameFile(const QString &one, const QString &other);

/// Copies the store, as of one moment, into `file`, beside which the copy is made until it is whole. Other processes
/// may have the store open and write meanwhile. An earlier copy is replaced; any other file is not.
[[nodiscard]] StoreCopyResult<void> backUpStore(const QString &storePath, const QString &file);

}
