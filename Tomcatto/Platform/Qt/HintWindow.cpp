#include "Platform/Qt/HintWindow.h"

#include <algorithm>
#include <chrono>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>

namespace tomcatto {

namespace {

constexpr std::chrono::milliseconds restTime(700);
constexpr std::chrono::seconds readingTime(10);
/// Between the frame and the words.
constexpr QMargins padding(7, 4, 7, 4);
/// From the pointer's tip to the hint, past the arrow.
constexpr QPoint belowPointer(2, 18);
constexpr int abovePointer = 6;
constexpr int mostWidth = 480;

struct Colours
{
    QRgb paper, line, ink;
};
constexpr Colours lightColours{0xFFFFFFFF, 0xFFEADFD4, 0xFF1D1D1F};
constexpr Colours darkColours{0xFF2C2420, 0xFF3D332D, 0xFFF5F5F7};

constexpr int textFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

/// Below the place and, where the screen ends, above it.
QRect besidePointer(QPoint place, QSize size, const QRect &screen)
{
    QRect hint(place + belowPointer, size);
    if (hint.bottom() > screen.bottom())
        hint.moveBottom(place.y() - abovePointer);
    hint.moveRight(std::min(hint.right(), screen.right()));
    return {{std::max(hint.left(), screen.left()), std::max(hint.top(), screen.top())}, size};
}

}

class HintWindow::Window final : public QRasterWindow
{
public:
    explicit Window(const Colours &colours)
        : m_colours(colours)
    {
        setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    }

    void say(const QString &text, QPoint place)
    {
        m_text = text;
        const QFontMetrics metrics(QGuiApplication::font());
        const QRect words = metrics.boundingRect(QRect(0, 0, mostWidth, mostWidth), textFlags, text);
        setGeometry(besidePointer(place, words.size().grownBy(padding), screen()->geometry()));
        update();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        const QRect whole({}, size());
        painter.fillRect(whole, QColor::fromRgb(m_colours.line));
        painter.fillRect(whole.adjusted(1, 1, -1, -1), QColor::fromRgb(m_colours.paper));
        painter.setPen(QColor::fromRgb(m_colours.ink));
        painter.drawText(whole.marginsRemoved(padding), textFlags, m_text);
    }

private:
    QString m_text;
    const Colours &m_colours;
};

HintWindow::HintWindow(QWindow *owner)
    : m_owner(owner)
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout([this] { isShown() ? hide() : open(); });
}

HintWindow::~HintWindow() = default;

void HintWindow::setDark(bool isDark)
{
    m_isDark = isDark;
}

void HintWindow::setText(const QString &text)
{
    if (std::exchange(m_text, text) == text || !isShown())
        return;
    if (text.isEmpty())
        hide();
    else
        m_window->say(text, m_place);
}

void HintWindow::pointerAt(QPoint place)
{
    if (isShown() || m_isDismissed)
        return;
    m_place = place;
    m_timer.start(restTime);
}

void HintWindow::hide()
{
    m_isDismissed = false;
    m_timer.stop();
    m_window.reset();
}

void HintWindow::dismiss()
{
    hide();
    m_isDismissed = true;
}

void HintWindow::open()
{
    if (m_text.isEmpty())
        return;
    m_window = std::make_unique<Window>(m_isDark ? darkColours : lightColours);
    if (m_owner)
        m_window->setTransientParent(m_owner);
    if (QScreen *screen = QGuiApplication::screenAt(m_place))
        m_window->setScreen(screen);
    m_window->say(m_text, m_place);
    m_window->show();
    m_timer.start(readingTime);
}

}
