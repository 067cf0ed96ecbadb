#include "ViewWindows/ViewWindows.h"

namespace tomcatto {

ViewWindows::ViewWindows(ViewHost &viewHost, MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_viewHost(viewHost)
    , m_runLoop(runLoop)
{
}

std::unique_ptr<ViewWindow> ViewWindows::make(const ViewDescription &description, std::shared_ptr<void> held)
{
    auto view = m_viewHost.create(description);
    if (!view)
        return nullptr;
    return std::make_unique<ViewWindow>(ViewWindow::Contents{std::move(held), std::move(view)}, m_runLoop, *this);
}

}
