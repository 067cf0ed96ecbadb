#pragma once

#include "Foundation/Logger.h"

#include <mutex>
#include <utility>
#include <vector>

namespace tomcatto {

/// Collects the log lines of the process for as long as it lives. Any thread logs into it.
class CapturedLog final
{
public:
    CapturedLog()
    {
        setLogSink([this](LogLevel level, const QString &, const QString &message) {
            const std::scoped_lock lock(m_mutex);
            m_lines.emplace_back(level, message);
        });
    }
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;
    ~CapturedLog() { setLogSink({}); }

    [[nodiscard]] qsizetype count(LogLevel level) const
    {
        const std::scoped_lock lock(m_mutex);
        return std::count_if(m_lines.begin(), m_lines.end(), [level](const auto &line) { return line.first == level; });
    }
    [[nodiscard]] QString lastMessage() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_lines.empty() ? QString() : m_lines.back().second;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<std::pair<LogLevel, QString>> m_lines;
};

}
