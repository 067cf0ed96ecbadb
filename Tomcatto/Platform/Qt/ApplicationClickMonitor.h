#pragma once

#include "Platform/Ports/GlobalClickMonitor.h"

#include <QtCore/QObject>

namespace tomcatto {

/// Presses in the application's own windows, which is all that the toolkit shows. It watches while somebody is
/// subscribed and not otherwise.
class ApplicationClickMonitor : public QObject, public GlobalClickMonitor
{
    Q_OBJECT

public:
    [[nodiscard]] Cancellable onPressed(std::function<void(QPoint)> handler) override;

    /// Tells of a press in a window of the application that belongs to another process.
    virtual void notice(QPoint place) { Q_EMIT pressed(place); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void pressed(QPoint place);

protected:
    [[nodiscard]] bool isWatching() const noexcept { return m_subscribers > 0; }

    virtual void subscribe();
    virtual void unsubscribe();

private:
    int m_subscribers = 0;
};

}
