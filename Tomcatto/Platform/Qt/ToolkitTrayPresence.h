#pragma once

#include <QtCore/QTimer>

namespace tomcatto {

/// Whether a tray runs that takes the toolkit's icons. The toolkit tells of no change by itself, so it is asked now and
/// then. Main thread only.
class ToolkitTrayPresence final : public QObject
{
    Q_OBJECT

public:
    ToolkitTrayPresence();

    [[nodiscard]] bool hasTray() const { return m_hasTray; }

Q_SIGNALS:
    /// The tray came or went.
    void trayChanged();

private:
    void look();

    QTimer m_timer;
    bool m_hasTray;
};

}
