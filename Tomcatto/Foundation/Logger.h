#pragma once

#include <functional>
#include <QtCore/QString>

namespace tomcatto {

/// How serious a log line is. They map to the system log's debug, info, error and critical.
enum class LogLevel { debug, info, error, fault };

/// Where log lines go. Called from any thread, one line at a time for each thread.
using LogSink = std::function<void(LogLevel level, const QString &category, const QString &message)>;

/// Sets the one destination of all log lines of the process; an empty sink drops them. Called by the application's
/// entry and by tests, while no other thread logs.
void setLogSink(LogSink sink);

/// Writes log lines under one category, the name of the type that logs. A value; any thread.
class Logger final
{
public:
    explicit Logger(QString category)
        : m_category(std::move(category))
    {
    }

    void debug(const QString &message) const { write(LogLevel::debug, message); }
    void info(const QString &message) const { write(LogLevel::info, message); }
    void error(const QString &message) const { write(LogLevel::error, message); }
    void fault(const QString &message) const { write(LogLevel::fault, message); }

private:
    void write(LogLevel level, const QString &message) const;

    QString m_category;
};

}
