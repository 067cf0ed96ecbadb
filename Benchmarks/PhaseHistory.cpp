#include "PhaseHistory.h"

#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/PomodoroSessionRecord.h"
#include "Persistence/Repositories/SessionQueries.h"
#include "Platform/Ports/IdentifierSource.h"

#include <iostream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <random>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

constexpr qint64 fewestADay = 24;
// Forty years of working days; a day of many phases begins at five in the morning.
constexpr qint64 mostDays = 14'600;
// Every eleventh day is one off, so that streaks end.
constexpr qint64 rhythm = 11;
constexpr qint64 skippedPercent = 8;
constexpr qint64 morning = 18'000;

/// Writes one phase after the other, each starting where the one before ended.
class PhaseWriter
{
public:
    explicit PhaseWriter(SQLite::Database &database)
        : m_insert(database, sessionQueries::insert)
    {
    }

    void beginDay(Date morningOfDay)
    {
        m_time = morningOfDay;
        m_index = 0;
    }

    void writePhase()
    {
        const qint64 position = m_index++ % 8;
        const PomodoroPhase phase = position % 2 == 0 ? PomodoroPhase::working
                                    : position == 7   ? PomodoroPhase::longBreak
                                                      : PomodoroPhase::shortBreak;
        const qint64 plan = phase == PomodoroPhase::working ? 1500 : phase == PomodoroPhase::longBreak ? 900 : 300;
        const bool wasSkipped = number(100) < skippedPercent;
        const qint64 actual = wasSkipped ? number(plan) : plan;
        const Date end = m_time + Seconds{static_cast<double>(actual) + static_cast<double>(number(1000)) / 1000.0};
        bind(phase, end, plan, actual, position / 2, wasSkipped);
        m_insert.exec();
        m_insert.reset();
        m_time = end;
    }

private:
    qint64 number(qint64 bound) { return static_cast<qint64>(m_random() % static_cast<std::uint64_t>(bound)); }

    void bind(PomodoroPhase phase, Date end, qint64 plan, qint64 actual, qint64 cycle, bool wasSkipped)
    {
        const auto high = static_cast<uint>(m_random());
        const auto low = static_cast<ushort>(m_random());
        const QUuid id(high, low, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, static_cast<uchar>(m_random()));
        m_insert.bind(1, identifierText(id).toStdString());
        m_insert.bind(2, rawValue(phase).toStdString());
        m_insert.bind(3, secondsSince1970(m_time));
        m_insert.bind(4, secondsSince1970(end));
        m_insert.bind(5, static_cast<std::int64_t>(plan));
        m_insert.bind(6, static_cast<std::int64_t>(actual));
        m_insert.bind(7, static_cast<std::int64_t>(cycle));
        m_insert.bind(8, wasSkipped ? 0 : 1);
        m_insert.bind(9, wasSkipped ? 1 : 0);
    }

    SQLite::Statement m_insert;
    std::mt19937_64 m_random{20'250'630};
    Date m_time;
    qint64 m_index = 0;
};

/// The days with phases, the first one first, today last.
std::vector<QDate> workingDays(qint64 count)
{
    std::vector<QDate> days;
    const QDate today = PhaseHistory::calendar().dayOf(PhaseHistory::now());
    for (qint64 back = 0; static_cast<qint64>(days.size()) < count; ++back) {
        if (back % rhythm != rhythm - 1)
            days.push_back(today.addDays(-back));
    }
    return {days.rbegin(), days.rend()};
}

}

Date PhaseHistory::now()
{
    return dateFromSeconds(1'751'313'600); // 30 June 2025, 20:00 in UTC
}

Calendar PhaseHistory::calendar()
{
    return {QTimeZone("Europe/Berlin"), Qt::Monday};
}

PhaseHistory::PhaseHistory(const QString &folder, qint64 phases)
    : m_directory(folder + QLatin1Char('/') + QString::number(phases))
    , m_phases(phases)
{
    // There once everything else is.
    QFile finished(m_directory + QStringLiteral("/finished"));
    try {
        if (!finished.exists()) {
            make();
            if (!finished.open(QIODevice::WriteOnly))
                throw std::runtime_error("cannot write to " + m_directory.toStdString());
        }
        restore();
    } catch (const std::exception &error) {
        std::cerr << "Error: no history of " << phases << " phases: " << error.what() << '\n';
        std::exit(EXIT_FAILURE);
    }
}

QString PhaseHistory::storePath() const
{
    return CoreDataStack::storePath(m_directory);
}

void PhaseHistory::restore() const
{
    SQLite::Database database(storePath().toStdString(), SQLite::OPEN_READWRITE, 5'000);
    SQLite::Statement statement(database, "DELETE FROM PomodoroSessionRecord WHERE rowid > ?1");
    statement.bind(1, static_cast<std::int64_t>(m_phases));
    statement.exec();
}

void PhaseHistory::make() const
{
    std::cerr << "Making a history of " << m_phases << " phases\n";
    QDir(m_directory).removeRecursively();
    // The product's own schema; closed again, so that nothing is shared with the filling.
    {
        const CoreDataStack schema(m_directory);
    }
    fill();
}

void PhaseHistory::fill() const
{
    SQLite::Database database(storePath().toStdString(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA synchronous = OFF; PRAGMA cache_size = -262144");
    SQLite::Transaction transaction(database);
    PhaseWriter writer(database);
    const qint64 aDay = std::max(fewestADay, m_phases / mostDays + 1);
    const Calendar zone = calendar();
    qint64 left = m_phases;
    for (const QDate day : workingDays((m_phases + aDay - 1) / aDay)) {
        writer.beginDay(zone.startOfDay(day) + Seconds{morning});
        for (qint64 written = 0; written < aDay && left > 0; ++written, --left)
            writer.writePhase();
    }
    transaction.commit();
    database.exec("PRAGMA wal_checkpoint(TRUNCATE)");
}

}
