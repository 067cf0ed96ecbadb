#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/ViewHost.h"

#include <QtCore/QObject>

namespace tomcatto {

/// One window that shows a view. Destroying it hides the window at once; the view itself goes in a later turn of the
/// main loop, since the closing call may come from within it. Main thread only.
class ViewWindow final : public QObject
{
    Q_OBJECT

public:
    /// What there is of a window. Member order: the view ends before what its bindings read.
    struct Contents
    {
        std::shared_ptr<void> held;
        std::unique_ptr<HostedView> view;
    };

    /// @param keeper with it goes a closed window whose later turn never comes
    ViewWindow(Contents contents, MainRunLoop &runLoop, QObject &keeper);
    ~ViewWindow() override;

    [[nodiscard]] HostedView &view() const { return *m_contents.view; }

Q_SIGNALS:
    void closed();
    void activeChanged();
    void left();

private:
    void tell(ViewEvent event);

    Contents m_contents;
    MainRunLoop &m_runLoop;
    QObject &m_keeper;
};

}
