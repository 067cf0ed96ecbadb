#pragma once

#include "BreakOverlay/BreakOverlayModel.h"
#include "BreakOverlay/BreakOverlayWindow.h"
#include "Platform/Ports/MainRunLoop.h"

#include <list>
#include <QtCore/QHash>

namespace tomcatto {

/// Makes the overlay's windows out of views, and lets them go again: a closed one fades away where the desktop can do
/// that, and is destroyed in a later turn of the run loop in any case, as the closing call may come from its view. What
/// the user mutes or turns on holds for the rest of the break, also when screens change. Main thread only; outlives its
/// windows.
class BreakOverlayWindows final : public QObject, public OverlayWindows
{
    Q_OBJECT

public:
    /// @param services and what else is referred to outlive this object
    BreakOverlayWindows(const BreakOverlayServices &services, ViewHost &viewHost, Screens &screens,
                        MainRunLoop &runLoop, BreakVideoSource videos, QObject *parent = nullptr);

    [[nodiscard]] std::unique_ptr<OverlayWindow> make(const Screen &screen, std::function<void()> onClosed) override;
    [[nodiscard]] Cancellable warm() override;

    /// Takes a closed window's view and ends it.
    void retire(OverlayView contents);

private:
    using Leaving = std::list<OverlayView>;

    [[nodiscard]] OverlayView makeView(const QString &component, bool isMuted);
    void finish(Leaving::iterator leaving);
    [[nodiscard]] bool startsMuted(const Screen &screen) const;

    BreakOverlayServices m_services;
    ViewHost &m_viewHost;
    Screens &m_screens;
    MainRunLoop &m_runLoop;
    BreakVideoSource m_videos;
    int m_openWindows = 0;
    Leaving m_leaving;
    // The user's choices of this break, by screen, and the last of them.
    QHash<QString, bool> m_mutes;
    bool m_wasMuted = false;
};

}
