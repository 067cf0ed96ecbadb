#pragma once

#include "Navigation/PopoverRoute.h"

#include <QtCore/QObject>
#include <vector>

namespace tomcatto {

/// Which view the popover shows: an empty path is the timer panel, a path that ends in `stats` the statistics. Main
/// thread only.
class PopoverNavigationStore final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] const std::vector<PopoverRoute> &path() const noexcept { return m_path; }
    /// Whether the statistics are shown.
    [[nodiscard]] bool showsStatistics() const noexcept
    {
        return !m_path.empty() && m_path.back() == PopoverRoute::stats;
    }
    /// Replaces the path; announces it only when it is another one.
    void setPath(std::vector<PopoverRoute> path);
    /// Goes one step on, unless the path ends there already.
    void append(PopoverRoute route);
    /// Goes one step back; nothing at the panel.
    void back();

Q_SIGNALS:
    void pathChanged();

private:
    std::vector<PopoverRoute> m_path;
};

}
