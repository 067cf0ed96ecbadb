#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <variant>

namespace tomcatto {

/// One stored value. The type counts: a number is not a boolean, a string is not a number. Data (`QByteArray`) holds
/// one JSON document.
using DefaultsValue = std::variant<bool, qint64, double, QString, QByteArray>;

/// A small store of typed values by key. Reads and writes act in memory at once and reach the disk in order shortly
/// after; writing never fails visibly. Main thread only, but for `synchronize`.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;

    /// The value under `key`, as laid over by values given for this run only; nothing if the key is absent or holds
    /// what no value can hold.
    [[nodiscard]] virtual std::optional<DefaultsValue> value(const QString &key) const = 0;
    /// The value under `key` as it is stored, without what was given for this run only.
    [[nodiscard]] virtual std::optional<DefaultsValue> storedValue(const QString &key) const = 0;
    /// Stores a value; the other keys stay as they are.
    virtual void setValue(const QString &key, const DefaultsValue &value) = 0;
    /// Removes a key; an absent one is not an error.
    virtual void remove(const QString &key) = 0;
    /// Waits until everything set before is on disk, or has failed to get there (which is logged). Any thread.
    /// @return whether it is on disk.
    virtual bool synchronize() = 0;
};

}
