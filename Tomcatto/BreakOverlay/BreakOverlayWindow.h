#pragma once

#include "BreakOverlay/BreakContentModel.h"
#include "BreakOverlay/OverlayWindows.h"
#include "Platform/Ports/ViewHost.h"

namespace tomcatto {

class BreakOverlayWindows;

/// A view and what it shows. Destroyed from the last to the first: the view before its model, which bindings read.
struct OverlayView
{
    std::unique_ptr<BreakContentModel> model;
    std::unique_ptr<HostedView> view;
};

/// One window of the break overlay over one screen. Main thread only.
class BreakOverlayWindow final : public QObject, public OverlayWindow
{
    Q_OBJECT

public:
    /// Shows the view over the screen. @param owner takes the view when the window ends. @param onClosed called when
    /// the desktop closes it
    BreakOverlayWindow(OverlayView contents, const Screen &screen, Screens &screens, BreakOverlayWindows &owner,
                       std::function<void()> onClosed);
    ~BreakOverlayWindow() override;

    void makeKey() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    OverlayView m_contents;
    Screens &m_screens;
    BreakOverlayWindows &m_owner;
    std::function<void()> m_onClosed;
};

}
