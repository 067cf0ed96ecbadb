#pragma once

#include "Platform/Ports/MainRunLoop.h"

#include <QtCore/QObject>

class QTimer;

namespace tomcatto {

/// Qt's event loop of the thread that creates it. Timers are precise to the millisecond: coarse ones may fire early and
/// would show the same second twice. A repeating timer keeps its phase; turns that the loop was too busy for are left
/// out. Spans run from 0 to about 24 days; longer ones are cut to that. Timers do not count while the machine sleeps.
class QtMainRunLoop final : public MainRunLoop
{
public:
    QtMainRunLoop() = default;
    QtMainRunLoop(const QtMainRunLoop &) = delete;
    QtMainRunLoop &operator=(const QtMainRunLoop &) = delete;

    [[nodiscard]] Cancellable every(std::chrono::milliseconds interval, std::function<void()> action) override;
    [[nodiscard]] Cancellable after(std::chrono::milliseconds delay, std::function<void()> action) override;
    void async(QObject &context, std::function<void()> action) override;

private:
    Cancellable start(QTimer *timer, std::chrono::milliseconds span, std::function<void()> action);

    QObject m_context;
};

}
