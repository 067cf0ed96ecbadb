#pragma once

#include "Platform/Ports/WorkspacePower.h"

namespace tomcatto {

/// The system's sleep and wake, called by hand.
class ManualPower final : public WorkspacePower
{
public:
    [[nodiscard]] bool tellsOfSleep() const override { return true; }
    [[nodiscard]] Cancellable onWillSleep(std::function<void()> handler) override
    {
        sleep = std::move(handler);
        return {};
    }
    [[nodiscard]] Cancellable onDidWake(std::function<void()> handler) override
    {
        wake = std::move(handler);
        return {};
    }
    void setSleepDelayed(bool isDelayed) override { isSleepDelayed = isDelayed; }

    std::function<void()> sleep;
    std::function<void()> wake;
    bool isSleepDelayed = false;
};

}
