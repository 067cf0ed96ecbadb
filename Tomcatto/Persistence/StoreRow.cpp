#include "Persistence/StoreRow.h"

#include <algorithm>
#include <cmath>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace tomcatto {

namespace {

// Milliseconds of a date are kept in 64 bits elsewhere.
constexpr double furthestSeconds = 9.0e15;

}

qint64 StoreRow::clampedInteger(int column, qint64 lowest, qint64 highest) const
{
    return std::clamp<qint64>(m_statement.getColumn(column).getInt64(), lowest, highest);
}

double StoreRow::real(int column) const
{
    return m_statement.getColumn(column).getDouble();
}

bool StoreRow::boolean(int column) const
{
    return m_statement.getColumn(column).getInt64() == 1;
}

QString StoreRow::text(int column) const
{
    const SQLite::Column value = m_statement.getColumn(column);
    const char *characters = value.getText();
    return QString::fromUtf8(characters, value.getBytes());
}

QByteArray StoreRow::data(int column) const
{
    const SQLite::Column value = m_statement.getColumn(column);
    const auto *bytes = static_cast<const char *>(value.getBlob());
    return {bytes, value.getBytes()};
}

QUuid StoreRow::identifier(int column) const
{
    const SQLite::Column value = m_statement.getColumn(column);
    const char *characters = value.getText();
    return QUuid::fromString(QLatin1String(characters, value.getBytes()));
}

std::optional<Date> StoreRow::date(int column) const
{
    const SQLite::Column value = m_statement.getColumn(column);
    if (!value.isFloat() && !value.isInteger())
        return std::nullopt;
    const double seconds = value.getDouble();
    if (!(std::abs(seconds) <= furthestSeconds))
        return std::nullopt;
    return dateFromSeconds(seconds);
}

}
