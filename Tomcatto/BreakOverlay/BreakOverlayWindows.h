#pragma once

#include "BreakOverlay/BreakOverlayModel.h"
#include "BreakOverlay/BreakOverlayWindow.h"
#include "ViewWindows/ViewWindows.h"

#include <list>
#include <QtCore/QHash>

namespace tomcatto {

/// Makes the overlay's windows out of views; a closed one fades away where the desktop can do that. What the user mutes
/// or turns on holds for the rest of the break, also when screens change. Main thread only; outlives its windows.
class BreakOverlayWindows final : public QObject, public OverlayWindows
{
    Q_OBJECT

public:
    /// @param services and what else is referred to outlive this object
    BreakOverlayWindows(const BreakOverlayServices &services, ViewWindows &windows, BreakVideoSource videos,
                        QObject *parent = nullptr);

    [[nodiscard]] std::unique_ptr<OverlayWindow> make(const Screen &screen, std::function<void()> onClosed) override;
    [[nodiscard]] Cancellable warm() override;

    /// Takes a closed window's view and ends it.
    void retire(std::unique_ptr<ViewWindow> view);

private:
    [[nodiscard]] std::unique_ptr<ViewWindow> makeView(const QString &component,
                                                       const std::shared_ptr<BreakContentModel> &model);
    [[nodiscard]] bool startsMuted(const Screen &screen) const;

    BreakOverlayServices m_services;
    ViewWindows &m_windows;
    BreakVideoSource m_videos;
    int m_openWindows = 0;
    std::list<std::unique_ptr<ViewWindow>> m_leaving;
    // The user's choices of this break, by screen, and the last of them.
    QHash<QString, bool> m_mutes;
    bool m_wasMuted = false;
};

}
