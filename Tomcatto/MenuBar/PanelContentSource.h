#pragma once

#include "MenuBar/MenuBarServices.h"
#include "MenuBar/PanelContent.h"

namespace tomcatto {

/// Words what the panel shows from the state at the time of the call. Main thread only.
class PanelContentSource final
{
public:
    explicit PanelContentSource(const MenuBarServices &services);

    [[nodiscard]] PanelClock clock() const;
    [[nodiscard]] PanelPhase phase() const;
    [[nodiscard]] PanelStrip strip() const;

private:
    [[nodiscard]] qint64 seconds() const;
    [[nodiscard]] QString phaseKey() const;
    [[nodiscard]] QString theme() const;
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString caption() const;
    /// A time of the day in the user's form. @param key of the text around it, and of the one for a halved day
    [[nodiscard]] QString timeText(Date date, const char *key, const char *halvedKey) const;
    [[nodiscard]] QString dialKey() const;
    [[nodiscard]] QString text(const char *key) const;

    MenuBarServices m_services;
};

}
