#include "Foundation/Logger.h"

namespace tomcatto {

namespace {

LogSink &currentSink()
{
    static LogSink sink;
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
