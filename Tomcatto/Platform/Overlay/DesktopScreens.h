#pragma once

#include "Platform/Overlay/ScreenChanges.h"
#include "Platform/Ports/Screens.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QScreen;

namespace tomcatto {

/// The toolkit's screens. On an X server the window manager is asked for what the toolkit has no words for; elsewhere a
/// window that covers a screen is an ordinary full-screen one. Main thread only.
class DesktopScreens final : public QObject, public Screens
{
    Q_OBJECT

public:
    explicit DesktopScreens(MainRunLoop &runLoop, QObject *parent = nullptr);

    [[nodiscard]] std::vector<Screen> screens() const override;
    [[nodiscard]] Cancellable onChanged(std::function<void()> handler) override;
    void cover(QWindow &window, const QString &screenId) override;
    void makeKey(QWindow &window) override;
    [[nodiscard]] bool canFade() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch(QScreen *screen);

    ScreenChanges m_changes;
    // Gets the keyboard once the window manager knows it.
    QPointer<QWindow> m_keyWindow;
};

}
