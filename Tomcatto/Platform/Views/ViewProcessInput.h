#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/Ports/KeyMonitor.h"
#include "Platform/Qt/ApplicationClickMonitor.h"
#include "Platform/Views/ViewProcess.h"

#include <map>

namespace tomcatto {

/// The keys that go to windows of views. Main thread only.
class ViewProcessKeys final : public QObject, public KeyMonitor
{
    Q_OBJECT

public:
    /// @param process outlives this
    explicit ViewProcessKeys(ViewProcess &process);

    [[nodiscard]] Cancellable onKeyDown(std::optional<Qt::Key> key,
                                        std::function<void(const KeyPress &)> handler) override;

private:
    struct Handler
    {
        std::optional<Qt::Key> key;
        std::function<void(const KeyPress &)> tell;
    };

    void watch(int number, const Handler &handler);
    void take(const ViewMessage &message) const;

    ViewProcess &m_process;
    std::map<int, Handler> m_handlers;
    int m_lastNumber = 0;
};

/// Lets a monitor know of presses in windows of views. @param process outlives the monitor
void followPresses(ViewProcess &process, ApplicationClickMonitor &monitor);

/// The taskbar as windows are in it, those of views and those of this process. Main thread only.
class ViewProcessTaskbar final : public QObject, public ActivationPolicyPort
{
    Q_OBJECT

public:
    /// @param own of this process; both outlive this
    ViewProcessTaskbar(ViewProcess &process, ActivationPolicyPort &own);

    void setPolicy(ActivationPolicyKind kind) override;

private:
    ViewProcess &m_process;
    ActivationPolicyPort &m_own;
    bool m_isIn = false;
};

}
