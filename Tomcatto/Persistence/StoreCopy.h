#pragma once

#include "Persistence/StoreError.h"

namespace tomcatto {

/// Why a copy of the store is not made, or not taken for the store.
struct StoreCopyError
{
    enum class Kind {
        /// The file that was named cannot be meant.
        usage,
        /// Not now: another program is in the way.
        notNow,
        /// A file or the store failed.
        file,
    };

    Kind kind = Kind::file;
    /// One line for people, in English.
    QString text;

    bool operator==(const StoreCopyError &) const = default;
};

template<typename T>
using StoreCopyResult = std::expected<T, StoreCopyError>;

/// Whether two paths lead to the same file, by whatever name or link.
[[nodiscard]] bool isSameFile(const QString &one, const QString &other);

/// Copies the store, as of one moment, into `file`, beside which the copy is made until it is whole. Other processes
/// may have the store open and write meanwhile. An earlier copy is replaced; any other file is not.
[[nodiscard]] StoreCopyResult<void> backUpStore(const QString &storePath, const QString &file);

}
