#pragma once

#include "CommandLine/CommandSurroundings.h"

namespace tomcatto {

/// A bar on standard output that shows how far something is; it writes only to a terminal.
class ProgressBar final
{
public:
    /// @param surroundings outlive the bar
    explicit ProgressBar(const CommandSurroundings &surroundings);

    /// @param fraction from 0 to 1
    void show(double fraction);
    /// Removes the bar.
    void end();

private:
    const CommandSurroundings &m_surroundings;
    OutputDisplay m_display;
    bool m_isShown = false;
};

}
