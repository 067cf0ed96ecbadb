#include "WidgetWindow/DesktopWidget.h"

#include "WidgetWindow/WidgetAccessibility.h"

#include <algorithm>
#include <cmath>
#include <QtGui/QAccessible>
#include <QtGui/QActionGroup>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

namespace tomcatto {

namespace {

const QString sizeKey = QStringLiteral("size");
const QString placeKey = QStringLiteral("place");
const QString everywhereKey = QStringLiteral("onEveryWorkspace");
constexpr int cornerRadius = 14;
constexpr int firstMargin = 24;

}

DesktopWidget::DesktopWidget(const WidgetPorts &ports, const LocalizedStrings &strings, std::optional<WidgetSize> size)
    : m_ports(ports)
    , m_strings(strings)
    , m_snapshot(ports.snapshotFile, ports.fileWatch, [this] { snapshotChanged(); })
{
    installWidgetAccessibility();
    const Qt::WindowFlags layer =
        m_ports.desktop.canPlaceWindows() ? Qt::Tool | Qt::WindowStaysOnBottomHint : Qt::Window;
    setWindowFlags(layer | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(strings.text(QStringLiteral("widget.window.title")));
    m_isEverywhere = stored(everywhereKey) != QStringLiteral("no");
    m_tick.setSingleShot(true);
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, &DesktopWidget::refresh);
    m_dayObserver = m_ports.wallClock.onDayChanged([this] { refresh(); });
    m_lookObserver = m_ports.desktop.onLookChanged([this] { update(); });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &DesktopWidget::restorePlace);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &DesktopWidget::restorePlace);
    winId();
    windowHandle()->installEventFilter(this);
    const WidgetSize last = fromRawValue<WidgetSize>(stored(sizeKey)).value_or(WidgetSize::medium);
    setSize(size.value_or(last));
    snapshotChanged();
}

DesktopWidget::~DesktopWidget() = default;

QString DesktopWidget::stored(const QString &key) const
{
    const auto value = m_ports.settings.storedValue(key);
    const auto *text = value ? std::get_if<QString>(&*value) : nullptr;
    return text != nullptr ? *text : QString();
}

double DesktopWidget::uptime() const
{
    constexpr double nanoseconds = 1e9;
    return static_cast<double>(m_ports.monotonicClock.nowNanoseconds()) / nanoseconds;
}

void DesktopWidget::snapshotChanged()
{
    m_arc.follow(m_snapshot.snapshot(), m_ports.wallClock.now(), uptime());
    refresh();
}

void DesktopWidget::refresh()
{
    const QString before = m_content.title;
    m_content =
        widgetContent(m_snapshot.snapshot(), m_arc, m_ports.wallClock.now(), m_ports.wallClock.calendar(), m_strings);
    update();
    armTick();
    if (m_content.title != before) {
        QAccessibleEvent words(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&words);
    }
}

void DesktopWidget::armTick()
{
    if (!m_content.isCounting || !windowHandle()->isExposed())
        return m_tick.stop();
    // Just past the next full second, which the instants of the file are too.
    const double now = secondsSince1970(m_ports.wallClock.now());
    m_tick.start(static_cast<int>(std::ceil((std::floor(now) + 1 - now) * 1'000)) + 1);
}

void DesktopWidget::present(std::optional<WidgetSize> size)
{
    if (size)
        setSize(*size);
    raise();
    activateWindow();
}

void DesktopWidget::setSize(WidgetSize size)
{
    m_size = size;
    setFixedSize(extent(size));
    shape();
    restorePlace();
    update();
    if (stored(sizeKey) != rawValue(size))
        m_ports.settings.setValue(sizeKey, rawValue(size));
}

void DesktopWidget::setEverywhere(bool isEverywhere)
{
    m_isEverywhere = isEverywhere;
    m_ports.settings.setValue(everywhereKey, isEverywhere ? QStringLiteral("yes") : QStringLiteral("no"));
    m_ports.desktop.putOnDesktop(*windowHandle(), isEverywhere);
}

void DesktopWidget::shape()
{
    if (m_ports.desktop.isComposited())
        return clearMask();
    // Without a compositor there is no translucency, and the corners are cut off instead.
    QPainterPath card;
    card.addRoundedRect(rect(), cornerRadius, cornerRadius);
    setMask(QRegion(card.toFillPolygon().toPolygon()));
}

void DesktopWidget::restorePlace()
{
    if (!m_ports.desktop.canPlaceWindows())
        return;
    const QStringList words = stored(placeKey).split(u' ');
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    const QRect first = screen->availableGeometry();
    QPoint place(first.right() + 1 - width() - firstMargin, first.top() + firstMargin);
    if (words.size() == 2)
        place = {words[0].toInt(), words[1].toInt()};
    // The screen that it lay on may be smaller now, or gone.
    if (const QScreen *const found = QGuiApplication::screenAt(place))
        screen = found;
    const QRect area = screen->availableGeometry();
    move(std::clamp(place.x(), area.left(), std::max(area.left(), area.right() + 1 - width())),
         std::clamp(place.y(), area.top(), std::max(area.top(), area.bottom() + 1 - height())));
}

void DesktopWidget::keepPlace()
{
    m_ports.settings.setValue(placeKey, QStringLiteral("%1 %2").arg(x()).arg(y()));
}

bool DesktopWidget::event(QEvent *event)
{
    // Servers forget what was wished for a window that is hidden.
    if (event->type() == QEvent::Show)
        m_ports.desktop.putOnDesktop(*windowHandle(), m_isEverywhere);
    return QWidget::event(event);
}

bool DesktopWidget::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Expose && !m_tick.isActive())
        QTimer::singleShot(0, this, &DesktopWidget::refresh);
    return isHandled;
}

void DesktopWidget::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    m_painter.paint(painter, m_content, m_size, m_ports.desktop.isDark(), mask().isEmpty());
}

void DesktopWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_grip = event->globalPosition().toPoint() - pos();
    m_isDragged = false;
}

void DesktopWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_grip)
        return;
    const QPoint place = event->globalPosition().toPoint() - *m_grip;
    m_isDragged = m_isDragged || (place - pos()).manhattanLength() >= QApplication::startDragDistance();
    if (!m_isDragged)
        return;
    if (m_ports.desktop.canPlaceWindows())
        move(place);
    else if (windowHandle()->startSystemMove())
        m_grip.reset();
}

void DesktopWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_grip)
        return;
    m_grip.reset();
    if (m_isDragged)
        keepPlace();
}

void DesktopWidget::contextMenuEvent(QContextMenuEvent *event)
{
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto *const sizes = new QActionGroup(menu);
    for (const WidgetSize size : allWidgetSizes) {
        QAction *const line = menu->addAction(m_strings.text(QStringLiteral("widget.menu.") + rawValue(size)));
        line->setCheckable(true);
        line->setChecked(size == m_size);
        sizes->addAction(line);
        connect(line, &QAction::triggered, this, [this, size] { setSize(size); });
    }
    menu->addSeparator();
    if (m_ports.desktop.canPlaceWindows()) {
        QAction *const everywhere = menu->addAction(m_strings.text(QStringLiteral("widget.menu.everywhere")));
        everywhere->setCheckable(true);
        everywhere->setChecked(m_isEverywhere);
        connect(everywhere, &QAction::toggled, this, &DesktopWidget::setEverywhere);
        menu->addSeparator();
    }
    connect(menu->addAction(m_strings.text(QStringLiteral("widget.menu.quit"))), &QAction::triggered, this,
            &DesktopWidget::quitRequested);
    menu->popup(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center()));
}

void DesktopWidget::keyPressEvent(QKeyEvent *event)
{
    const int place = event->key() - Qt::Key_1;
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Quit) ||
        (event->key() == Qt::Key_Q && event->modifiers() == Qt::ControlModifier))
        Q_EMIT quitRequested();
    else if (place >= 0 && place < static_cast<int>(allWidgetSizes.size()))
        setSize(allWidgetSizes.at(static_cast<std::size_t>(place)));
    else
        QWidget::keyPressEvent(event);
}

void DesktopWidget::closeEvent(QCloseEvent *event)
{
    Q_EMIT quitRequested();
    QWidget::closeEvent(event);
}

}
