#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Qt/WindowSystem.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>

namespace tomcatto {

/// Windows that cover screens: ordinary full-screen ones with what the window system adds. Window managers put
/// whichever full-screen window has the keyboard in front, so they take it again when any other window gets it. Main
/// thread only.
class CoveringWindows final : public QObject
{
    Q_OBJECT

public:
    /// How long another window keeps the keyboard before windows that cover screens take it again.
    static constexpr std::chrono::milliseconds returnTime{50};

    /// @param windowSystem outlives this, as the run loop does.
    CoveringWindows(MainRunLoop &runLoop, const WindowSystem &windowSystem);

    /// Shows a hidden window over the screen with this frame. Does nothing once there is none.
    void cover(QWindow &window, const QRect &frame);
    /// The window closes: it may stay in sight for a moment, but asks for neither place nor keyboard any more.
    void uncover(QWindow &window);
    /// Gives a shown window the keyboard, whichever application has it now.
    void makeKey(QWindow &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool isCovering(const QWindow *window) const;
    void returnToFront();

    MainRunLoop &m_runLoop;
    const WindowSystem &m_windowSystem;
    // Gets the keyboard once the window manager knows it.
    QPointer<QWindow> m_keyWindow;
    QList<QPointer<QWindow>> m_covering;
    Cancellable m_return;
};

}
