#pragma once

#include "Platform/Ports/Screens.h"
#include "Platform/Qt/ScreenChanges.h"
#include "Platform/Qt/WindowSystem.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QScreen;

namespace tomcatto {

/// The toolkit's screens. A window that covers one is an ordinary full-screen one with what the window system adds.
/// Window managers put whichever full-screen window has the keyboard in front, so windows that cover screens take it
/// again when any other window gets it. Main thread only.
class DesktopScreens final : public QObject, public Screens
{
    Q_OBJECT

public:
    /// How long another window keeps the keyboard before windows that cover screens take it again.
    static constexpr std::chrono::milliseconds returnTime{50};

    /// @param windowSystem outlives this, as the run loop does.
    DesktopScreens(MainRunLoop &runLoop, const WindowSystem &windowSystem, QObject *parent = nullptr);

    [[nodiscard]] std::vector<Screen> screens() const override;
    [[nodiscard]] Cancellable onChanged(std::function<void()> handler) override;
    void cover(QWindow &window, const QString &screenId) override;
    void uncover(QWindow &window) override;
    void makeKey(QWindow &window) override;
    [[nodiscard]] bool canFade() const override { return m_windowSystem.canFade(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QList<QScreen *> liveScreens() const;
    void watch(QScreen *screen);
    void noteChange();
    void returnToFront();
    [[nodiscard]] bool isCovering(const QWindow *window) const;

    MainRunLoop &m_runLoop;
    const WindowSystem &m_windowSystem;
    ScreenChanges m_changes;
    // Whether any screen was that of an output.
    bool m_hasOutputs = false;
    // Gets the keyboard once the window manager knows it.
    QPointer<QWindow> m_keyWindow;
    QList<QPointer<QWindow>> m_covering;
    Cancellable m_return;
};

}
