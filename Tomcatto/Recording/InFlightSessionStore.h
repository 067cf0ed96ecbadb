#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/UserDefaults.h"
#include "Recording/InFlightSessionMarker.h"

namespace tomcatto {

/// Keeps the one marker under "inFlightSession" in user defaults. Main thread only, but for `synchronize`.
class InFlightSessionStore final
{
public:
    explicit InFlightSessionStore(UserDefaults &store);

    /// The stored marker; undecodable data counts as none.
    [[nodiscard]] std::optional<InFlightSessionMarker> load() const;
    void save(const InFlightSessionMarker &marker);
    void clear();
    /// Waits until the last save or clear is on disk. Any thread. @return whether it is
    bool synchronize() const;

private:
    UserDefaults &m_store;
    Logger m_logger;
};

}
