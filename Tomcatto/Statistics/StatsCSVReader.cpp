#include "Statistics/StatsCSVReader.h"

#include "Statistics/StatsCSVColumn.h"

#include <algorithm>
#include <array>
#include <limits>
#include <QtCore/QDate>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

using Field = QByteArrayView;

/// The case whose label the field is, in the order of the enumeration.
template<typename Enum, std::size_t count>
std::optional<Enum> labelled(const std::array<const char *, count> &labels, Field field)
{
    const auto found = std::ranges::find_if(labels, [field](const char *label) { return field == label; });
    return found != labels.end() ? std::optional(static_cast<Enum>(found - labels.begin())) : std::nullopt;
}

/// A whole number of digits alone.
std::optional<qint64> digits(Field text)
{
    constexpr qsizetype most = 12;
    qint64 number = 0;
    for (const char character : text) {
        if (character < '0' || character > '9')
            return std::nullopt;
        number = number * 10 + (character - '0');
        if (text.size() > most)
            return std::nullopt;
    }
    return text.isEmpty() ? std::nullopt : std::optional(number);
}

/// Minutes, at least two digits and no more than needed, and seconds.
std::optional<qint32> duration(Field text)
{
    const qsizetype colon = text.indexOf(':');
    if (colon < 2 || text.size() != colon + 3 || (colon > 2 && text.startsWith('0')))
        return std::nullopt;
    const auto minutes = digits(text.first(colon));
    const auto seconds = digits(text.last(2));
    if (!minutes || !seconds || *seconds >= 60)
        return std::nullopt;
    const qint64 length = *minutes * 60 + *seconds;
    return std::in_range<qint32>(length) ? std::optional(static_cast<qint32>(length)) : std::nullopt;
}

/// Seconds since 1970 of an instant such as 2025-03-04T08:15:00Z.
std::optional<qint64> instant(Field text)
{
    constexpr Field form = "0000-00-00T00:00:00Z";
    if (text.size() != form.size())
        return std::nullopt;
    for (qsizetype place = 0; place < form.size(); ++place) {
        const bool isDigit = text[place] >= '0' && text[place] <= '9';
        if (form[place] == '0' ? !isDigit : text[place] != form[place])
            return std::nullopt;
    }
    const auto number = [text](qsizetype place, qsizetype size) {
        return static_cast<int>(digits(text.sliced(place, size)).value_or(0));
    };
    const QDate day(number(0, 4), number(5, 2), number(8, 2));
    const qint64 hour = number(11, 2);
    const qint64 minute = number(14, 2);
    const qint64 second = number(17, 2);
    if (!day.isValid() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return ((QDate(1970, 1, 1).daysTo(day) * 24 + hour) * 60 + minute) * 60 + second;
}

std::expected<ImportedSession, QString> session(Field line)
{
    std::array<Field, 4> fields;
    for (std::size_t place = 0; place < fields.size(); ++place) {
        const qsizetype comma = line.indexOf(',');
        const bool isLast = place == fields.size() - 1;
        if (isLast != (comma < 0))
            return std::unexpected(QStringLiteral("it does not have four fields"));
        fields.at(place) = isLast ? line : line.first(comma);
        line = line.sliced(comma + 1);
    }
    const auto phase = labelled<PomodoroPhase>(StatsCSVColumn::types, fields[0]);
    const auto length = duration(fields[1]);
    const auto ending = labelled<SessionEnding>(StatsCSVColumn::endings, fields[2]);
    const auto start = instant(fields[3]);
    if (!phase)
        return std::unexpected(QStringLiteral("the type is not Work, Short Break, Long Break or Unknown"));
    if (!length)
        return std::unexpected(QStringLiteral("the duration is not minutes and seconds such as 25:00"));
    if (!ending)
        return std::unexpected(QStringLiteral("the status is not Completed, Skipped or Interrupted"));
    if (!start)
        return std::unexpected(QStringLiteral("the start is not a time in UTC such as 2025-03-04T08:15:00Z"));
    return ImportedSession{*start, *length, *phase, *ending};
}

}

std::expected<std::vector<ImportedSession>, QString> StatsCSVReader::read(const QString &path)
{
    const auto failure = [&path](const QString &reason) {
        return std::unexpected(QStringLiteral("%1: %2").arg(path, reason));
    };
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return failure(QStringLiteral("it is not a file"));
    if (info.size() > largestFile)
        return failure(QStringLiteral("it is larger than any history"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return failure(file.errorString());
    StatsCSVReader reader;
    const auto taken = reader.takeAll(file);
    if (file.error() != QFileDevice::NoError)
        return failure(file.errorString());
    if (!taken)
        return std::unexpected(QStringLiteral("%1, line %2: %3.").arg(path).arg(reader.m_lines).arg(taken.error()));
    return std::move(reader.m_sessions);
}

std::expected<void, QString> StatsCSVReader::takeAll(QIODevice &file)
{
    constexpr qsizetype longestLine = 100;
    constexpr qint64 pieceSize = qint64{64} * 1024;
    QByteArray left;
    while (true) {
        const QByteArray piece = file.read(pieceSize);
        left += piece;
        qsizetype begin = 0;
        for (qsizetype end = left.indexOf('\n'); end >= 0; end = left.indexOf('\n', begin)) {
            if (auto taken = take(Field(left).sliced(begin, end - begin)); !taken)
                return taken;
            begin = end + 1;
        }
        left.remove(0, begin);
        if (piece.isEmpty())
            return left.isEmpty() && m_lines > 0 ? std::expected<void, QString>() : take(left);
        if (left.size() > longestLine) {
            ++m_lines;
            return std::unexpected(QStringLiteral("it is too long"));
        }
    }
}

std::expected<void, QString> StatsCSVReader::take(QByteArrayView line)
{
    ++m_lines;
    if (line.endsWith('\r'))
        line.chop(1);
    if (m_lines == 1) {
        if (line == Field(StatsCSVColumn::header))
            return {};
        return std::unexpected(QStringLiteral("the header is not ") + QString::fromLatin1(StatsCSVColumn::header));
    }
    const auto read = session(line);
    if (!read)
        return std::unexpected(read.error());
    m_sessions.push_back(*read);
    return {};
}

}
