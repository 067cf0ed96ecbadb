#include "Platform/Views/ViewProcess.h"

#include "Platform/Posix/CompanionProgram.h"

#include <algorithm>
#include <QtCore/QProcess>

namespace tomcatto {

namespace {

constexpr qsizetype mostBytes = 1 << 18;

}

ViewProcess::ViewProcess(QString program, MainRunLoop &runLoop)
    : m_program(std::move(program))
    , m_runLoop(runLoop)
{
}

ViewProcess::~ViewProcess()
{
    end();
}

void ViewProcess::start()
{
    if (isRunning())
        return;
    m_problem.clear();
    m_process = new QProcess;
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    m_process->setProcessEnvironment(environmentOfWindows());
    auto connection = startConnected(*m_process, m_program);
    if (!connection)
        return lose(QStringLiteral("there is no socket for them"));
    if (!m_process->waitForStarted())
        return lose(QStringLiteral("%1 does not start; is Tomcatto installed completely?").arg(m_program));
    m_connection = std::move(connection);
    m_connection->onChange([this] { read(); });
    m_logger.debug(QStringLiteral("the views' process starts"));
    Q_EMIT began();
}

void ViewProcess::send(const ViewMessage &message)
{
    if (isRunning())
        m_connection->write(packed(message));
}

std::optional<ViewMessage> ViewProcess::await(ViewMessageKind kind)
{
    const QDeadlineTimer deadline(patience);
    while (isRunning()) {
        const auto found = std::ranges::find(m_waiting, kind, &ViewMessage::kind);
        if (found != m_waiting.end()) {
            ViewMessage message = *found;
            m_waiting.erase(found);
            if (!m_waiting.empty())
                m_runLoop.async(*this, [this] { read(); });
            return message;
        }
        if (!m_connection->waitForInput(deadline))
            giveUp();
        else
            readAll();
    }
    return std::nullopt;
}

void ViewProcess::read()
{
    readAll();
    // A message may end the process, or wait for another one.
    while (!m_waiting.empty()) {
        const ViewMessage message = m_waiting.front();
        m_waiting.erase(m_waiting.begin());
        Q_EMIT received(message);
    }
}

void ViewProcess::readAll()
{
    while (isRunning()) {
        const LocalInput input = m_connection->read(mostBytes);
        m_reader.add(input.bytes);
        while (auto message = m_reader.next())
            m_waiting.push_back(std::move(*message));
        if (input.peer != LocalPeer::open)
            return lose(QStringLiteral("their process has ended"));
        if (input.bytes.size() < mostBytes)
            return;
    }
}

void ViewProcess::end()
{
    if (m_process) {
        m_process->disconnect(this);
        endCompanion(std::exchange(m_process, nullptr));
    }
    m_connection.reset();
    m_reader = {};
    m_waiting.clear();
}

void ViewProcess::giveUp()
{
    lose(QStringLiteral("their process does not answer"));
}

void ViewProcess::lose(const QString &reason)
{
    m_problem = reason;
    m_logger.error(QStringLiteral("windows cannot be shown: ") + reason);
    end();
    Q_EMIT lost();
}

}
