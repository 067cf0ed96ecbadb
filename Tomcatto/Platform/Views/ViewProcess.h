#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/LocalConnection.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Views/ViewMessage.h"

#include <memory>
#include <QtCore/QObject>

class QProcess;

namespace tomcatto {

/// The process with the views: what they load, three times the memory of the program, goes with it. Main thread only.
class ViewProcess final : public QObject
{
    Q_OBJECT

public:
    /// Longer than it takes a slow disk to bring the libraries.
    static constexpr std::chrono::seconds patience{5};

    /// @param program takes the number of a connected socket; it may be missing. @param runLoop outlives this
    ViewProcess(QString program, MainRunLoop &runLoop);
    ViewProcess(const ViewProcess &) = delete;
    ViewProcess &operator=(const ViewProcess &) = delete;
    ~ViewProcess() override;

    [[nodiscard]] bool isRunning() const noexcept { return m_connection != nullptr; }
    /// Starts it where it is not running.
    void start();
    /// Drops the message where it is not running.
    void send(const ViewMessage &message);
    void send(ViewMessageKind kind, const QVariantList &arguments) { send(ViewMessage{kind, arguments}); }
    /// Blocks until a message of this kind comes; others are told later. One that does not come in time ends the
    /// process. @return `nullopt` if the process has ended
    [[nodiscard]] std::optional<ViewMessage> await(ViewMessageKind kind);
    /// Ends it; nobody is told, and nobody waits.
    void end();
    /// Ends it as one that does not answer.
    void giveUp();
    /// Why it ended by itself the last time, or did not start; empty where it did not.
    [[nodiscard]] const QString &problem() const noexcept { return m_problem; }

Q_SIGNALS:
    /// It runs, and knows of nothing yet.
    void began();
    void received(const tomcatto::ViewMessage &message);
    /// It has ended by itself, with every window; in the middle of whatever noticed.
    void lost();

private:
    void read();
    void readAll();
    void lose(const QString &reason);

    const QString m_program;
    MainRunLoop &m_runLoop;
    const Logger m_logger{QStringLiteral("ViewProcess")};
    QProcess *m_process = nullptr;
    std::unique_ptr<LocalConnection> m_connection;
    ViewMessageReader m_reader;
    std::vector<ViewMessage> m_waiting;
    QString m_problem;
};

}
