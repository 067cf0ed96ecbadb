#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/ViewHost.h"

#include <QtCore/QObject>

namespace tomcatto {

/// One window that shows a view. Destroying it closes the window at once; the view itself goes in a later turn of the
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

    [[nodiscard]] QWindow &window() const { return m_contents.view->window(); }
    /// Shows the window and brings it to the front, with the keyboard.
    void present();

Q_SIGNALS:
    /// The user or the desktop has closed the window. In a later turn, unless it was shown again by then.
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Contents m_contents;
    MainRunLoop &m_runLoop;
    QObject &m_keeper;
};

}
