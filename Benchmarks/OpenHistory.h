#pragma once

#include "Fakes/ManualWallClock.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/SessionRepository.h"
#include "Statistics/StatsAggregator.h"
#include "Yardstick.h"

namespace tomcatto {

/// A history with the store, the repository and the statistics over it, as the application has them.
struct OpenHistory
{
    explicit OpenHistory(const PhaseHistory &phases)
        : history(phases)
    {
    }

    PhaseHistory history;
    ManualWallClock clock{PhaseHistory::now(), PhaseHistory::calendar()};
    CoreDataStack stack{history.applicationSupportDirectory()};
    SessionRepository repository{stack, clock};
    StatsAggregator aggregator{repository, clock};
};

/// What all benchmarks share: a folder for their files, the histories that are open, and the yardsticks.
class Workshop final
{
public:
    explicit Workshop(QString folder)
        : m_folder(std::move(folder))
    {
    }

    /// Made with the first use.
    [[nodiscard]] PhaseHistory history(qint64 phases) const { return {m_folder, phases}; }
    /// Opened with the first use.
    [[nodiscard]] OpenHistory &open(qint64 phases)
    {
        auto &slot = m_open[phases];
        if (!slot)
            slot = std::make_unique<OpenHistory>(history(phases));
        return *slot;
    }
    [[nodiscard]] Yardstick &yardstick() { return m_yardstick; }
    [[nodiscard]] const QString &folder() const noexcept { return m_folder; }

private:
    QString m_folder;
    std::map<qint64, std::unique_ptr<OpenHistory>> m_open;
    Yardstick m_yardstick;
};

}
