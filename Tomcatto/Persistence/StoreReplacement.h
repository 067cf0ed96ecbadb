#pragma once

#include "Persistence/StoreCopy.h"

namespace tomcatto {

/// Puts a copy of the store in the store's place. At every moment the store's file is either the earlier store or the
/// new one, each whole.
///
/// The two halves may run in different processes: the first takes time and touches nothing that is there; the second
/// is short and needs that no connection of its own process is open. It closes no connection of others: while another
/// process has the store open, it is refused.
namespace storeReplacement {

/// Makes a store of a copy, in a file of its own beside the store: checks the copy all through, and that it is ours and
/// no newer than this program; brings it to this program's schema. The copy itself is left as it is.
/// @return the file, which is the caller's to remove where it is not put in place
[[nodiscard]] StoreCopyResult<QString> prepare(const QString &copy, const QString &storePath);

/// Puts what was prepared in the store's place. The earlier store stays beside it as `keptName`, a file name without
/// its suffix, with all that was in its log; a damaged one with its log beside it.
/// @return the earlier store's file; empty where there was none
[[nodiscard]] StoreCopyResult<QString> putInPlace(const QString &prepared, const QString &storePath,
                                                  const QString &keptName);

}

}
