#pragma once

#include "Statistics/SessionHistory.h"

namespace tomcatto {

/// A history that a test fills by hand; it counts how often the stamps are read.
class ManualSessionHistory final : public SessionHistory
{
public:
    [[nodiscard]] std::vector<CompletedWorkStamp> completedWorkStamps() override
    {
        ++reads;
        return stamps;
    }
    [[nodiscard]] std::optional<Date> earliestSessionDate() override { return earliest; }
    [[nodiscard]] std::vector<PomodoroSessionRecord> sessions(const DateInterval &, std::optional<PomodoroPhase>,
                                                              std::optional<int>) override
    {
        return records;
    }
    [[nodiscard]] Cancellable onSave(std::function<void()> saved) override
    {
        announceSave = std::move(saved);
        return Cancellable([this] { announceSave = nullptr; });
    }

    std::vector<CompletedWorkStamp> stamps;
    std::vector<PomodoroSessionRecord> records;
    std::optional<Date> earliest;
    std::function<void()> announceSave;
    int reads = 0;
};

}
