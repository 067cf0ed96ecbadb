#include "Foundation/Logger.h"

namespace tomcatto {

namespace {

LogSink &currentSink()
{
    // Never destroyed: a thread that a disk held up may log while the process ends.
    static auto &sink = *new LogSink;
    return sink;
}

}

void setLogSink(LogSink sink)
{
    currentSink() = std::move(sink);
}

void Logger::write(LogLevel level, const QString &message) const
{
    if (const LogSink &sink = currentSink())
        sink(level, m_category, message);
}

}
