#pragma once

#include "Platform/Ports/StatusItem.h"
#include "Platform/Ports/UserDefaults.h"
#include "Platform/Qt/HintWindow.h"
#include "Platform/Qt/WindowSystem.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QRasterWindow>

class QScreen;

namespace tomcatto {

/// The pill as a small window at the top edge of a screen: always on top, on every workspace, in no taskbar. It is
/// dragged along the edge and remembers its place. A click activates it, and Return and the space bar do when it has
/// the keyboard; a right click or the menu key asks for the menu. Where the display server places windows itself it is
/// an ordinary small window. Main thread only.
class FloatingPillWindow final : public QRasterWindow
{
    Q_OBJECT

public:
    /// @param defaults keeps the place on the edge under a key of its own.
    /// @param windowSystem outlives this, as the defaults do.
    FloatingPillWindow(UserDefaults &defaults, const WindowSystem &windowSystem);
    ~FloatingPillWindow() override;

    /// Shows the window, with what was presented.
    void show();
    /// Shows the pill, else the title as text, on the strip.
    void present(const StatusItemPresentation &presentation);
    /// Whether the strip behind the pill is dark.
    void setDark(bool isDark);
    /// What a screen reader says.
    [[nodiscard]] const QString &accessibleText() const noexcept { return m_accessibleText; }
    /// Device pixels to a logical pixel where the window is or will be.
    [[nodiscard]] double scale() const;
    [[nodiscard]] QAccessibleInterface *accessibleRoot() const override;

Q_SIGNALS:
    void activated();
    void menuWanted(QPoint place);
    void scaleChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void watchScreen(QScreen *screen);
    void restorePlace();
    void fit();
    void setFixedSize(QSize size);
    [[nodiscard]] QFont titleFont() const;
    [[nodiscard]] QPoint wantedPlace() const;
    void place();
    void correctPlace();
    void shape();
    void drag(QPoint way, QPoint cursor);
    void finishDrag();
    void checkScale();

    UserDefaults &m_defaults;
    const WindowSystem &m_windowSystem;
    QImage m_pill;
    QString m_title;
    HintWindow m_hint{this};
    QString m_accessibleText;
    /// The place: a screen, and where on its width the middle of the window is, 0 to 1.
    QPointer<QScreen> m_screen;
    double m_fraction = 0.5;
    /// Where the pointer went down, and the window's left edge then; nothing while no button is held.
    std::optional<QPoint> m_pressed;
    int m_pressedLeft = 0;
    double m_lastScale = 0;
    /// Runs for a moment after the window has moved.
    QTimer m_settling;
    int m_corrections = 0;
    bool m_isDragged = false;
    bool m_isSpaceDown = false;
    /// Whether the ring shows while it has the keyboard: not after a press of the mouse.
    bool m_showsFocus = false;
    bool m_isDark = false;
};

}
