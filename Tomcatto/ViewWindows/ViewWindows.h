#pragma once

#include "ViewWindows/ViewWindow.h"

namespace tomcatto {

/// Makes windows out of views, and keeps what was closed for the moment until it may go. Main thread only; outlives its
/// windows, and ends before the models that it was not given to hold.
class ViewWindows final : public QObject
{
    Q_OBJECT

public:
    ViewWindows(ViewHost &viewHost, MainRunLoop &runLoop, QObject *parent = nullptr);

    /// Makes a window, hidden. Null where the view cannot be made, which is logged.
    /// @param held goes right after the view, as what the view shows does
    [[nodiscard]] std::unique_ptr<ViewWindow> make(const ViewDescription &description, std::shared_ptr<void> held = {});

private:
    ViewHost &m_viewHost;
    MainRunLoop &m_runLoop;
};

}
