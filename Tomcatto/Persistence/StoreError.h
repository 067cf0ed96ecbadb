#pragma once

#include <expected>
#include <QtCore/QString>

namespace tomcatto {

/// Why the store did not do what was asked.
enum class StoreFailure { notAStore, damaged, locked, notWritable, diskFull, newerVersion, other };

/// One failure of the store's file, in words that name the file and what to do about it.
struct StoreError
{
    StoreFailure failure = StoreFailure::other;
    /// SQLite's extended result code; 0 where SQLite itself had nothing to complain about.
    int code = 0;
    /// The store's file.
    QString path;
    /// What happened, without the file and the advice.
    QString detail;

    bool operator==(const StoreError &) const = default;

    /// Makes the error for a result code of SQLite and the text that came with it.
    [[nodiscard]] static StoreError fromResultCode(int extendedCode, const QString &path, const QString &message);

    /// What to do about it.
    [[nodiscard]] QString advice() const;
    /// One line for people: the file, what happened, what to do.
    [[nodiscard]] QString description() const;
    /// The particulars for a closer look, as a dictionary text.
    [[nodiscard]] QString userInfo() const;
};

/// A value, or why the store could not give it.
template<typename T>
using StoreResult = std::expected<T, StoreError>;

}
