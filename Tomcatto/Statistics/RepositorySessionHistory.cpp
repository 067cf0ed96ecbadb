#include "Statistics/RepositorySessionHistory.h"

#include "Persistence/Repositories/SessionRepository.h"

namespace tomcatto {

CompletedWorkReading RepositorySessionHistory::completedWork()
{
    return m_repository.readCompletedWork();
}

std::optional<CompletedWorkReading> RepositorySessionHistory::completedWorkAfter(const HistoryPosition &position)
{
    return m_repository.readCompletedWorkAfter(position);
}

std::optional<Date> RepositorySessionHistory::earliestSessionDate()
{
    return m_repository.earliestSessionDate();
}

std::vector<PomodoroSessionRecord> RepositorySessionHistory::sessions(const DateInterval &interval,
                                                                      std::optional<PomodoroPhase> phase,
                                                                      std::optional<int> limit)
{
    return m_repository.sessions(interval, phase, limit);
}

Cancellable RepositorySessionHistory::onSave(std::function<void()> saved)
{
    const QMetaObject::Connection connection =
        QObject::connect(&m_repository, &SessionRepository::didSave, &m_repository, std::move(saved));
    return Cancellable([connection] { QObject::disconnect(connection); });
}

}
