#include "Navigation/PopoverNavigationStore.h"

#include <utility>

namespace tomcatto {

void PopoverNavigationStore::setPath(std::vector<PopoverRoute> path)
{
    if (path == m_path)
        return;
    m_path = std::move(path);
    Q_EMIT pathChanged();
}

void PopoverNavigationStore::append(PopoverRoute route)
{
    if (!m_path.empty() && m_path.back() == route)
        return;
    m_path.push_back(route);
    Q_EMIT pathChanged();
}

void PopoverNavigationStore::back()
{
    if (m_path.empty())
        return;
    m_path.pop_back();
    Q_EMIT pathChanged();
}

}
