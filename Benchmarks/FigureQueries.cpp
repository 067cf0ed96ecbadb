#include "FigureQueries.h"

namespace tomcatto::figureQueries {

namespace {

const std::string completedWork = " FROM PomodoroSessionRecord WHERE phase = 'work' AND wasCompleted = 1";

std::string runs(const std::string &choice)
{
    return "WITH days AS (SELECT DISTINCT julianday(date(startedAt, 'unixepoch', 'localtime')) AS day" + completedWork +
           "), runs AS (SELECT count(*) AS length, max(day) AS last FROM"
           " (SELECT day, day - row_number() OVER (ORDER BY day) AS run FROM days) GROUP BY run)"
           " SELECT length FROM runs ORDER BY " +
           choice + " DESC LIMIT 1";
}

std::string within(const DateInterval &interval)
{
    return completedWork + " AND startedAt >= " + literal(interval.start) + " AND startedAt < " + literal(interval.end);
}

}

std::string filled(const char *sql, const std::vector<std::string> &values)
{
    std::string text = sql;
    for (std::size_t index = values.size(); index > 0; --index) {
        const std::string placeholder = std::string("?").append(std::to_string(index));
        for (auto at = text.find(placeholder); at != std::string::npos; at = text.find(placeholder))
            text.replace(at, placeholder.size(), values[index - 1]);
    }
    return text;
}

std::string literal(Date date)
{
    return QString::number(secondsSince1970(date), 'f', 3).toStdString();
}

std::string count(const DateInterval &interval)
{
    return "SELECT count(*)" + within(interval);
}

std::string minutes(const DateInterval &interval)
{
    return "SELECT sum(actualDurationSeconds) / 60" + within(interval);
}

std::string days(Date since)
{
    return "SELECT date(startedAt, 'unixepoch', 'localtime') AS day, count(*)" + completedWork +
           " AND startedAt >= " + literal(since) + " GROUP BY day";
}

std::string buckets(Date since, const std::string &unit)
{
    return "SELECT strftime('" + unit + "', startedAt, 'unixepoch', 'localtime') AS unit," +
           " sum(actualDurationSeconds) / 60" + completedWork + " AND startedAt >= " + literal(since) +
           " GROUP BY unit";
}

std::string csv()
{
    return ".mode csv\n"
           "SELECT CASE phase WHEN 'work' THEN 'Work' WHEN 'shortBreak' THEN 'Short Break' WHEN 'longBreak' THEN 'Long "
           "Break'"
           " ELSE 'Unknown' END, printf('%02d:%02d', actualDurationSeconds / 60, actualDurationSeconds % 60),"
           " CASE WHEN wasCompleted THEN 'Completed' WHEN wasSkipped THEN 'Skipped' ELSE 'Interrupted' END,"
           " strftime('%Y-%m-%dT%H:%M:%SZ', startedAt, 'unixepoch') FROM PomodoroSessionRecord"
           " WHERE startedAt IS NOT NULL ORDER BY startedAt DESC";
}

std::string longestRun()
{
    return runs("length");
}

std::string lastRun()
{
    return runs("last");
}

}
