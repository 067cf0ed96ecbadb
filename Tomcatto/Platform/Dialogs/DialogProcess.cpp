#include "Platform/Dialogs/DialogProcess.h"

#include "Platform/Dialogs/DialogMessages.h"
#include "Platform/Posix/CompanionProgram.h"

#include <QtCore/QProcess>

namespace tomcatto {

DialogProcess::DialogProcess(const DialogSurroundings &surroundings, QJsonObject request,
                             std::function<void(const QJsonObject &)> onEnd)
    : m_surroundings(surroundings)
    , m_onEnd(std::move(onEnd))
{
    start(std::move(request));
    connect(&surroundings.appearance, &DesktopAppearance::darkChanged, this, [this] {
        send({{dialogKey::isDark, m_surroundings.appearance.dark()}});
    });
}

DialogProcess::~DialogProcess()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    endCompanion(m_process);
}

void DialogProcess::start(QJsonObject request)
{
    m_process = new QProcess;
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    m_process->setProcessEnvironment(environmentOfWindows());
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            fail(QStringLiteral("%1 does not start; is Tomcatto installed completely?").arg(m_surroundings.program));
    });
    m_connection = startConnected(*m_process, m_surroundings.program);
    if (m_hasEnded)
        return;
    // What a desktop gave this process for its next window is the dialog's.
    qunsetenv(activationTokenVariable);
    if (!m_connection)
        return fail(QStringLiteral("there is no socket for it"));
    m_connection->onChange([this] { read(); });
    awaitShown();
    request.insert(dialogKey::isDark, m_surroundings.appearance.dark());
    request.insert(dialogKey::windowBehind, QString::number(m_surroundings.windowBehind()));
    send(request);
}

void DialogProcess::awaitShown()
{
    m_waiting = m_surroundings.runLoop.after(patience, [this] { fail(QStringLiteral("its process does not answer")); });
}

void DialogProcess::raise()
{
    if (m_hasEnded)
        return;
    awaitShown();
    send({{dialogKey::raise, true}});
}

void DialogProcess::send(const QJsonObject &message)
{
    if (m_connection)
        m_connection->write(lineOf(message));
}

void DialogProcess::read()
{
    constexpr qsizetype mostBytes = 1 << 16;
    const LocalInput input = m_connection->read(mostBytes);
    m_unread += input.bytes;
    while (const auto message = takeLine(m_unread))
        take(*message);
    // An answer is the last that it says.
    if (!m_hasEnded && input.peer != LocalPeer::open)
        fail(QStringLiteral("its process has ended"));
}

void DialogProcess::take(const QJsonObject &message)
{
    if (message.contains(dialogKey::isShown))
        m_waiting.cancel();
    else
        end(message);
}

void DialogProcess::fail(const QString &reason)
{
    m_logger.error(QStringLiteral("a dialog cannot be shown: ") + reason);
    end({});
}

void DialogProcess::end(const QJsonObject &answer)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_waiting.cancel();
    // Not the connection itself: this may be called by it.
    m_surroundings.runLoop.async(*this, [this, answer] {
        m_connection.reset();
        const auto tell = std::move(m_onEnd);
        tell(answer);
    });
}

}
