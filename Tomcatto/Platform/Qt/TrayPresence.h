#pragma once

#include <QtCore/QObject>

namespace tomcatto {

/// Tells whether a tray runs that takes the toolkit's icons, and follows its coming and going. Main thread only.
class TrayPresence : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual bool hasTray() const = 0;

Q_SIGNALS:
    /// The tray came, went or was replaced by another one.
    void trayChanged();
};

}
