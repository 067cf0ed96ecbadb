#pragma once

#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/WidgetPlatform.h"
#include "WidgetWindow/SnapshotWatch.h"
#include "WidgetWindow/WidgetPainter.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

namespace tomcatto {

/// The widget's window. It shows what the snapshot's file says and wakes up once a second only while that counts and
/// can be seen. Size, place and whether it is on every workspace are kept in its own settings. One element to a screen
/// reader. Main thread only.
class DesktopWidget final : public QWidget
{
    Q_OBJECT

public:
    /// @param ports and strings outlive it
    /// @param size nothing for the one that it had last
    DesktopWidget(const WidgetPorts &ports, const LocalizedStrings &strings, std::optional<WidgetSize> size);
    ~DesktopWidget() override;

    [[nodiscard]] const QString &spokenText() const noexcept { return m_content.spoken; }
    /// Somebody asked for a widget once more. @param size `nullopt` if any will do
    void present(std::optional<WidgetSize> size);

Q_SIGNALS:
    void quitRequested();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void snapshotChanged();
    void refresh();
    void armTick();
    void setSize(WidgetSize size);
    void setEverywhere(bool isEverywhere);
    void shape();
    void restorePlace();
    void keepPlace();
    [[nodiscard]] QString stored(const QString &key) const;
    [[nodiscard]] double uptime() const;

    WidgetPorts m_ports;
    const LocalizedStrings &m_strings;
    WidgetSize m_size = WidgetSize::medium;
    bool m_isEverywhere = true;
    WidgetPainter m_painter;
    WidgetContent m_content;
    PhaseArc m_arc;
    std::optional<QPoint> m_grip;
    bool m_isDragged = false;
    QTimer m_tick;
    Cancellable m_dayObserver;
    Cancellable m_lookObserver;
    SnapshotWatch m_snapshot;
};

}
