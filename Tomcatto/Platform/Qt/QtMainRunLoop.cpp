#include "Platform/Qt/QtMainRunLoop.h"

#include <algorithm>
#include <limits>
#include <QtCore/QMetaObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

namespace tomcatto {

Cancellable QtMainRunLoop::every(std::chrono::milliseconds interval, std::function<void()> action)
{
    return start(new QTimer(&m_context), interval, std::move(action));
}

Cancellable QtMainRunLoop::after(std::chrono::milliseconds delay, std::function<void()> action)
{
    auto *timer = new QTimer(&m_context);
    timer->setSingleShot(true);
    return start(timer, delay, std::move(action));
}

void QtMainRunLoop::async(QObject &context, std::function<void()> action)
{
    QMetaObject::invokeMethod(&context, std::move(action), Qt::QueuedConnection);
}

Cancellable QtMainRunLoop::start(QTimer *timer, std::chrono::milliseconds span, std::function<void()> action)
{
    constexpr std::chrono::milliseconds longest{std::numeric_limits<int>::max()};
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, &m_context, std::move(action));
    timer->start(std::clamp(span, std::chrono::milliseconds{0}, longest));
    // The action may cancel its own timer, so the object goes later; what the action holds is let go at once.
    return Cancellable([held = QPointer(timer)] {
        if (!held)
            return;
        held->stop();
        held->disconnect();
        held->deleteLater();
    });
}

}
