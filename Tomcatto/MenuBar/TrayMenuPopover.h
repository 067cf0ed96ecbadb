#pragma once

#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/StatusItem.h"
#include "QuillbayKit/PopoverFocusDismissal.h"
#include "ViewWindows/ViewWindows.h"

#include <QtCore/QObject>

namespace tomcatto {

class TrayMenuViewModel;

/// The item's menu in a small window at the place of a click, where the bar does not show it by itself. It is there
/// until a line is chosen or the user turns elsewhere; meanwhile it follows what it is given. Main thread only.
class TrayMenuPopover final : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives it.
    TrayMenuPopover(ViewWindows &windows, GlobalClickMonitor &clickMonitor, MainRunLoop &runLoop);
    ~TrayMenuPopover() override;

    /// What the next one shows, and an open one from now on.
    void setMenu(const TrayMenu &menu);
    /// Shows the menu, in the place of an open one. @param place in logical pixels of the screens
    void show(QPoint place);
    void close();

Q_SIGNALS:
    void chosen(const tomcatto::TrayMenuCommand &command);

private:
    void connectModel();
    void fit(QSize size);

    ViewWindows &m_windows;
    GlobalClickMonitor &m_clickMonitor;
    MainRunLoop &m_runLoop;
    TrayMenu m_menu;
    QPoint m_place;
    bool m_isPresented = false;
    std::shared_ptr<TrayMenuViewModel> m_model;
    std::unique_ptr<ViewWindow> m_window;
    std::unique_ptr<quillbay::PopoverFocusDismissal> m_dismissal;
};

}
