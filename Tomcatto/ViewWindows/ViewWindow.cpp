#include "ViewWindows/ViewWindow.h"

namespace tomcatto {

ViewWindow::ViewWindow(Contents contents, MainRunLoop &runLoop, QObject &keeper)
    : m_contents(std::move(contents))
    , m_runLoop(runLoop)
    , m_keeper(keeper)
{
    view().onEvent([this](ViewEvent event) { tell(event); });
}

ViewWindow::~ViewWindow()
{
    view().onEvent({});
    view().hide();
    m_runLoop.async(m_keeper, [leaving = std::make_shared<Contents>(std::move(m_contents))] {});
}

void ViewWindow::tell(ViewEvent event)
{
    switch (event) {
    case ViewEvent::closed:
        return closed();
    case ViewEvent::activeChanged:
        return activeChanged();
    case ViewEvent::frameChanged:
        return;
    case ViewEvent::left:
        return left();
    }
}

}
