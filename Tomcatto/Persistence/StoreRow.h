#pragma once

#include "Foundation/Date.h"

#include <concepts>
#include <limits>
#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUuid>

namespace SQLite {
class Statement;
}

namespace tomcatto {

/// One row of a query's answer, valid until the next. Columns count from 0. Another program may have put any type into
/// any column, so every reading has an answer for every value.
class StoreRow final
{
public:
    explicit StoreRow(const SQLite::Statement &statement)
        : m_statement(statement)
    {
    }

    /// The whole number; 0 for a missing value, the nearest one in range for a wider value.
    template<std::integral T>
    [[nodiscard]] T integer(int column) const
    {
        return static_cast<T>(clampedInteger(column, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    }
    /// The number; 0 for a missing value.
    [[nodiscard]] double real(int column) const;
    /// Whether the value is YES, which is stored as 1.
    [[nodiscard]] bool boolean(int column) const;
    /// The text; empty for a missing value.
    [[nodiscard]] QString text(int column) const;
    /// The bytes; empty for a missing value.
    [[nodiscard]] QByteArray data(int column) const;
    /// The identifier; null for a missing value or another text.
    [[nodiscard]] QUuid identifier(int column) const;
    /// The date; nothing for a missing value, one that is not a number, and one beyond what a calendar can reach.
    [[nodiscard]] std::optional<Date> date(int column) const;

private:
    [[nodiscard]] qint64 clampedInteger(int column, qint64 lowest, qint64 highest) const;

    const SQLite::Statement &m_statement;
};

}
