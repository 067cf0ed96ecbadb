#include "PhaseHistory.h"

#include "Persistence/CoreDataStack.h"

#include <iostream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

// A history that was made otherwise is made anew.
const QString madeBy = QStringLiteral("made by make-history");

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
    QFile finished(m_directory + u'/' + madeBy);
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
    const QString until =
        toDateTime(now()).toTimeZone(calendar().timeZone).toString(QStringLiteral("yyyy-MM-ddTHH:mm"));
    const QStringList words{QStringLiteral("--phases"),
                            QString::number(m_phases),
                            QStringLiteral("--until"),
                            until,
                            QStringLiteral("--zone"),
                            QString::fromLatin1(calendar().timeZone.id()),
                            m_directory};
    if (QProcess::execute(QStringLiteral(TOMCATTO_MAKE_HISTORY), words) != 0)
        throw std::runtime_error("Tools/make-history failed");
}

}
