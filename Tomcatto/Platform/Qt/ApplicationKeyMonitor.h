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

    [[nodiscard]] Cancellable onKeyDown(std::optional<Qt::Key> key,
                                        std::function<void(const KeyPress &)> handler) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Handler
    {
        std::optional<Qt::Key> key;
        std::function<void(const KeyPress &)> tell;
    };

    void remove(int number);
    void rest();
    /// Tells the first who wants the key. @return whether there is one
    [[nodiscard]] bool isTaken(const KeyPress &press) const;

    // A running call keeps its own.
    std::map<int, std::shared_ptr<const Handler>> m_handlers;
    int m_lastNumber = 0;
    // Taken from the shortcuts; its press is still to come.
    std::optional<Qt::Key> m_taken;
};

}
