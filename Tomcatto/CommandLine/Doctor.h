#pragma once

#include "CommandLine/CommandSurroundings.h"
#include "Control/ControlClient.h"

namespace tomcatto {

/// Tells what the application stands on and what it lacks: what people put into a report of a fault. Works whether the
/// application runs or not, changes nothing, and takes some seconds at most. Blocking.
class Doctor final
{
public:
    /// Both outlive the doctor.
    Doctor(const CommandSurroundings &surroundings, const ControlClient &client)
        : m_surroundings(surroundings)
        , m_client(client)
    {
    }

    /// Prints a line for each finding, or all as a JSON array of objects with part, mark, found and advice.
    /// @return `done` where nothing that is needed fails, else `failed`
    [[nodiscard]] ExitStatus report(bool isJson) const;

private:
    [[nodiscard]] Findings findings() const;
    [[nodiscard]] Finding findApplication() const;
    [[nodiscard]] Finding findHistory() const;
    [[nodiscard]] Finding findVideos() const;

    const CommandSurroundings &m_surroundings;
    const ControlClient &m_client;
};

}
