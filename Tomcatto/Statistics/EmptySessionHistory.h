#pragma once

#include "Statistics/SessionHistory.h"

namespace tomcatto {

/// The history of somebody who has no store yet.
class EmptySessionHistory final : public SessionHistory
{
public:
    [[nodiscard]] CompletedWorkReading completedWork() override { return {}; }
    [[nodiscard]] std::optional<CompletedWorkReading> completedWorkAfter(const HistoryPosition & /*position*/) override
    {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<Date> earliestSessionDate() override { return std::nullopt; }
    [[nodiscard]] std::vector<PomodoroSessionRecord> sessions(const DateInterval & /*interval*/,
                                                              std::optional<PomodoroPhase> /*phase*/,
                                                              std::optional<int> /*limit*/) override
    {
        return {};
    }
    [[nodiscard]] Cancellable onSave(std::function<void()> /*saved*/) override { return {}; }
};

}
