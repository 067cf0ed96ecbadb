#pragma once

#include "Platform/Ports/Finding.h"
#include "Platform/Ports/ViewHost.h"
#include "Platform/Views/ObjectPublisher.h"
#include "Platform/Views/ViewProcess.h"

namespace tomcatto {

class RemoteView;

/// Makes views in the process that is there for them. It starts with the first view, and ends some time after the last
/// one. Making one waits for it; a process that hangs or ends takes its windows with it, which then tell that they were
/// closed, and the next view starts another one. Main thread only.
class ProcessViewHost final : public QObject, public ViewHost
{
    Q_OBJECT

public:
    /// How long a process without views is kept: what was opened by mistake is often opened again.
    static constexpr std::chrono::seconds keptTime{10};

    /// @param appearance has the properties `dark`, `reducedMotion`, `highContrast` and `textScale`, which views
    /// follow.
    /// @param texts has the property `language`, which they follow as well.
    /// @param released called when the process is let go. All outlive this
    ProcessViewHost(
        ViewProcess &process, MainRunLoop &runLoop, QObject &appearance, QObject &texts,
        std::function<void()> released = [] {});
    ~ProcessViewHost() override;

    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override;
    [[nodiscard]] QString problem() const override { return m_problem; }

    /// The ordinary window that got the keyboard last, as the display server knows it; 0 where there is none.
    [[nodiscard]] quint64 windowBehind() const { return m_windowBehind; }

    /// Looks whether programs with windows can run and what views import is there. @param programs as processes have
    /// them
    [[nodiscard]] static Finding find(const QStringList &programs);

private:
    friend class RemoteView;

    void begin();
    void ask(int number, const ViewDescription &description);
    void take(const ViewMessage &message);
    static void log(const QVariantList &line);
    void loseAll();
    /// A window that does not go would cover the screen for ever: the process then goes instead.
    void awaitEnd(int view);
    void forget(int view);
    void rest();

    ViewProcess &m_process;
    MainRunLoop &m_runLoop;
    QObject &m_appearance;
    QObject &m_texts;
    std::function<void()> m_released;
    // A running call keeps its own.
    std::shared_ptr<ObjectPublisher> m_publisher;
    std::map<int, RemoteView *> m_views;
    // Until when each is to be gone.
    std::map<int, Cancellable> m_leaving;
    int m_lastView = 0;
    QString m_problem;
    quint64 m_windowBehind = 0;
    Cancellable m_rest;
};

}
