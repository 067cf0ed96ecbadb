#pragma once

#include "Platform/Ports/ViewHost.h"
#include "Platform/Qt/CoveringWindows.h"

#include <QtCore/QVariantAnimation>

namespace tomcatto {

/// What windows of views share; it outlives them.
struct WindowPlaces
{
    WindowPlaces(MainRunLoop &loop, const WindowSystem &system)
        : runLoop(loop)
        , windowSystem(system)
        , covering(loop, system)
    {
    }

    MainRunLoop &runLoop;
    const WindowSystem &windowSystem;
    CoveringWindows covering;
};

/// A view whose window is in this process. The window's properties `routeTime`, `inTime` and `outTime` tell in
/// milliseconds how long it glides, comes and goes; `isComposited` tells it whether translucent parts let what is
/// behind them through (elsewhere they are black), and `isLeaving` that it goes. Main thread only.
class WindowView final : public QObject, public HostedView
{
    Q_OBJECT

public:
    /// @param window hidden; goes with this
    WindowView(std::unique_ptr<QWindow> window, ViewDescription::Kind kind, WindowPlaces &places);
    ~WindowView() override;

    [[nodiscard]] QWindow &window() const { return *m_window; }

    void present() override;
    void hide() override;
    void place(const QRect &rectangle) override;
    void cover(const QRect &frame) override;
    void makeKey() override;
    void leave() override;
    [[nodiscard]] bool isActive() const override { return m_window->isActive(); }
    [[nodiscard]] QRect frame() const override { return m_window->frameGeometry(); }
    [[nodiscard]] quint64 serverWindow() const override { return m_window->isVisible() ? m_window->winId() : 0; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void becomePanel();
    void fitScreen();
    void setPlace(const QRect &rectangle);
    void correctPlace();
    /// @param isIn whether it comes. @param then once it has
    void fade(bool isIn, std::function<void()> then);
    void endLeaving();

    // First, so that it goes last.
    std::unique_ptr<QWindow> m_window;
    WindowPlaces &m_places;
    QRect m_target;
    // The window's.
    QVariantAnimation &m_gliding;
    QVariantAnimation &m_fading;
    /// Runs for a moment after the window has moved.
    Cancellable m_settling;
    int m_corrections = 0;
};

}
