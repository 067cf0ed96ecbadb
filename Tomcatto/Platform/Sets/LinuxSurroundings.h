#pragma once

#include "Platform/Ports/Finding.h"
#include "Platform/Ports/RestSources.h"

#include <QtCore/QString>

namespace tomcatto {

/// What tells on a Linux desktop whether its user is away, has locked it, or looks at something in full screen. Main
/// thread only.
class LinuxSurroundings final
{
public:
    LinuxSurroundings();

    [[nodiscard]] FactSource &fullScreen() noexcept { return m_fullScreen; }
    [[nodiscard]] FactSource &lock() noexcept { return m_lock; }
    [[nodiscard]] IdleSource &idle() noexcept { return m_idle; }

    /// Looks which of these answer. Waits for them, two seconds at most for each of the three.
    [[nodiscard]] static Findings findings();

    /// A source, and what it is called among people.
    struct Named
    {
        QString name;
        std::unique_ptr<FactSource> source;
    };

private:
    std::vector<Named> m_fullScreenSources;
    std::vector<Named> m_lockSources;
    AnyFactSource m_fullScreen;
    AnyFactSource m_lock;
    RestSources m_idle;
};

}
