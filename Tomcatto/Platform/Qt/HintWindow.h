#pragma once

#include <memory>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QRasterWindow>

namespace tomcatto {

/// Words in a small window beside the pointer, which come up where it rests and go by themselves after a while. The
/// window exists only while it shows, takes no presses and never the keyboard. Main thread only.
class HintWindow final
{
public:
    /// @param owner the window that the hint is about, which some display servers place it by; none for an icon that
    ///        is not the toolkit's.
    explicit HintWindow(QWindow *owner = nullptr);
    ~HintWindow();

    void setDark(bool isDark);
    /// The words, one line or more: those of the next hint, and at once those of one that shows. Without any it hides.
    void setText(const QString &text);
    /// The pointer has come to a place, in logical pixels of the screens. The hint shows there when no other call
    /// follows for 700 ms; one that shows stays where it is.
    void pointerAt(QPoint place);
    /// Hides it, and forgets where the pointer is. To be called when that has left.
    void hide();
    /// Hides it, and shows none until the pointer has left: to be called at a press, which may open something here.
    void dismiss();
    [[nodiscard]] bool isShown() const noexcept { return m_window != nullptr; }

private:
    class Window;

    void open();

    QPointer<QWindow> m_owner;
    /// Until it shows, then until it goes.
    QTimer m_timer;
    std::unique_ptr<Window> m_window;
    QString m_text;
    QPoint m_place;
    bool m_isDark = false;
    bool m_isDismissed = false;
};

}
