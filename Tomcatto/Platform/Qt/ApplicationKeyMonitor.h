#pragma once

#include "Platform/Ports/KeyMonitor.h"

#include <map>
#include <memory>
#include <optional>
#include <QtCore/QObject>

namespace tomcatto {

/// Sees keys by filtering the application's events before any window gets them, and before the shortcuts of windows do.
/// Main thread only.
class ApplicationKeyMonitor final : public QObject, public KeyMonitor
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] Cancellable onKeyDown(std::function<bool(const KeyPress &)> handler) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Handlers = std::map<int, std::shared_ptr<std::function<bool(const KeyPress &)>>>;

    void remove(int key);
    void rest();
    [[nodiscard]] bool isTaken(const KeyPress &press) const;

    // Kept by a running call, during which the monitor may go.
    std::shared_ptr<Handlers> m_handlers = std::make_shared<Handlers>();
    int m_lastKey = 0;
    // Taken from the shortcuts; its press is still to come.
    std::optional<Qt::Key> m_taken;
};

}
