#pragma once

#include "Platform/Ports/Surroundings.h"

#include <QtCore/QTimer>

namespace tomcatto {

/// Tells a handler in a turn of its own, unless the result is cancelled before, that nothing here tells.
[[nodiscard]] inline Cancellable tellUntold(FactSource::Handler handler)
{
    auto *const context = new QObject;
    QTimer::singleShot(0, context, [handler = std::move(handler)] { handler(Fact::untold); });
    // Later, because the handler itself may cancel.
    return Cancellable([context] {
        context->disconnect();
        context->deleteLater();
    });
}

/// A fact that nothing tells here.
class AbsentFact final : public FactSource
{
public:
    [[nodiscard]] Cancellable watch(Handler handler) override { return tellUntold(std::move(handler)); }
};

/// Nothing here tells whether keys and pointer rest.
class AbsentIdle final : public IdleSource
{
public:
    [[nodiscard]] Cancellable watch(std::chrono::seconds /*rest*/, FactSource::Handler handler) override
    {
        return tellUntold(std::move(handler));
    }
};

}
