#include "Yardstick.h"

#include "Persistence/Repositories/SessionQueries.h"

#include <algorithm>
#include <iostream>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <SQLiteCpp/SQLiteCpp.h>

namespace tomcatto {

namespace {

constexpr int runs = 5;
// Enough for the log to be copied into the file once, as it is in the long run.
constexpr int commits = 250;
constexpr int longestMilliseconds = 300'000;

double middle(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

[[noreturn]] void fail(const QString &reason)
{
    std::cerr << "Error: no yardstick: " << reason.toStdString() << '\n';
    std::exit(EXIT_FAILURE);
}

QString shellOutput(const QString &file, const QByteArray &script)
{
    QProcess shell;
    // The shell's "localtime" shall mean the history's zone.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TZ"), QString::fromLatin1(PhaseHistory::calendar().timeZone.id()));
    shell.setProcessEnvironment(environment);
    shell.start(QStringLiteral("sqlite3"), {QStringLiteral("-bail"), file});
    shell.write(script);
    shell.closeWriteChannel();
    if (!shell.waitForFinished(longestMilliseconds) || shell.exitCode() != 0)
        fail(shell.errorString() + QLatin1Char(' ') + QString::fromUtf8(shell.readAllStandardError()));
    return QString::fromUtf8(shell.readAllStandardOutput());
}

}

double Yardstick::shell(const PhaseHistory &history, const std::string &sql)
{
    const auto [known, isNew] = m_known.try_emplace({history.phases(), sql});
    if (!isNew)
        return known->second;
    QByteArray script =
        ".output " + QProcess::nullDevice().toUtf8() + "\n" + QByteArray::fromStdString(sql) + ";\n.timer on\n";
    for (int run = 0; run < runs; ++run)
        script += QByteArray::fromStdString(sql) + ";\n";
    static const QRegularExpression line(QStringLiteral("user ([0-9.]+) sys ([0-9.]+)"));
    std::vector<double> seconds;
    auto found = line.globalMatch(shellOutput(history.storePath(), script));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        seconds.push_back(match.captured(1).toDouble() + match.captured(2).toDouble());
    }
    if (seconds.size() != runs)
        fail(QStringLiteral("sqlite3 did not time: ") + QString::fromStdString(sql));
    return known->second = middle(std::move(seconds)) * 1e9;
}

double Yardstick::durableCommit(const PhaseHistory &history)
{
    SQLite::Database database(history.storePath().toStdString(), SQLite::OPEN_READWRITE, 5'000);
    database.exec("PRAGMA synchronous = FULL");
    SQLite::Statement insert(database, sessionQueries::insert);
    QElapsedTimer timer;
    timer.start();
    for (int commit = 0; commit < commits; ++commit) {
        insert.bind(1, "11111111-1111-1111-1111-111111111111");
        insert.bind(2, "work");
        insert.bind(3, secondsSince1970(PhaseHistory::now()));
        // Outside a transaction each statement is one.
        insert.exec();
        insert.reset();
    }
    return static_cast<double>(timer.nsecsElapsed()) / commits;
}

void Yardstick::report(benchmark::State &state, const std::string &budget, const std::string &name, double nanoseconds)
{
    if (!budget.empty() || !name.empty())
        state.SetLabel(budget + "|" + name);
    if (nanoseconds > 0)
        state.counters["yardstick"] = nanoseconds;
}

}
