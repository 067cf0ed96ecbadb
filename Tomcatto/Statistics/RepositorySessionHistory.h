#pragma once

#include "Statistics/SessionHistory.h"

namespace tomcatto {

class SessionRepository;

/// The stored history as the statistics see it. Main thread only.
class RepositorySessionHistory final : public SessionHistory
{
public:
    /// @param repository must outlive the history.
    explicit RepositorySessionHistory(SessionRepository &repository)
        : m_repository(repository)
    {
    }

    [[nodiscard]] CompletedWorkReading completedWork() override;
    [[nodiscard]] std::optional<CompletedWorkReading> completedWorkAfter(const HistoryPosition &position) override;
    [[nodiscard]] std::optional<Date> earliestSessionDate() override;
    [[nodiscard]] std::vector<PomodoroSessionRecord>
    sessions(const DateInterval &interval, std::optional<PomodoroPhase> phase, std::optional<int> limit) override;
    [[nodiscard]] Cancellable onSave(std::function<void()> saved) override;

private:
    SessionRepository &m_repository;
};

}
