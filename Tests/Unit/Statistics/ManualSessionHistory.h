#pragma once

#include "Persistence/Repositories/SessionHistory.h"

namespace tomcatto {

/// A history that a test fills by hand; it counts how often all stamps are read.
class ManualSessionHistory final : public SessionHistory
{
public:
    [[nodiscard]] CompletedWorkReading completedWork() const override
    {
        ++reads;
        return {stamps, HistoryPosition{rewrites, static_cast<qint64>(stamps.size())}};
    }
    [[nodiscard]] std::optional<CompletedWorkReading> completedWorkAfter(const HistoryPosition &position) const override
    {
        if (position.rewrites != rewrites)
            return std::nullopt;
        return CompletedWorkReading{{stamps.begin() + position.lastRow, stamps.end()},
                                    HistoryPosition{rewrites, static_cast<qint64>(stamps.size())}};
    }
    [[nodiscard]] std::optional<Date> earliestSessionDate() const override { return earliest; }
    [[nodiscard]] std::vector<PomodoroSessionRecord> sessions(const DateInterval &, std::optional<PomodoroPhase>,
                                                              std::optional<int>) const override
    {
        return records;
    }
    [[nodiscard]] Cancellable onSave(std::function<void()> saved) const override
    {
        announceAddition = std::move(saved);
        return Cancellable([this] { announceAddition = nullptr; });
    }
    /// Announces that any of the stamps may be another; stamps that were only added at the end need `announceAddition`.
    void announceSave()
    {
        ++rewrites;
        announceAddition();
    }

    std::vector<CompletedWorkStamp> stamps;
    std::vector<PomodoroSessionRecord> records;
    std::optional<Date> earliest;
    mutable std::function<void()> announceAddition;
    quint64 rewrites = 0;
    mutable int reads = 0;
};

}
