#pragma once

#include "Platform/Dialogs/DialogProcess.h"
#include "Platform/Ports/Alert.h"

#include <deque>

namespace tomcatto {

/// Warnings in dialogs, one after the other. One that cannot be shown counts as closed. Main thread only.
class ProcessAlert final : public Alert
{
public:
    /// @param surroundings outlives this
    explicit ProcessAlert(const DialogSurroundings &surroundings)
        : m_surroundings(surroundings)
    {
    }

    void showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed) override;

private:
    struct Waiting
    {
        AlertDescription description;
        std::function<void(AlertButton)> onClosed;
    };

    void showNext();
    void close(AlertButton button);

    const DialogSurroundings &m_surroundings;
    /// The first one is showing.
    std::deque<Waiting> m_waiting;
    std::unique_ptr<DialogProcess> m_dialog;
};

}
