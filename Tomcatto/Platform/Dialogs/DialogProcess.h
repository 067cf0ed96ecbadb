#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/LocalConnection.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Qt/DesktopAppearance.h"

#include <memory>
#include <QtCore/QJsonObject>

class QProcess;

namespace tomcatto {

/// What dialogs share; it outlives them.
struct DialogSurroundings
{
    /// Takes the number of a connected socket; it may be missing.
    QString program;
    MainRunLoop &runLoop;
    /// Dialogs are as dark as the application's windows.
    const DesktopAppearance &appearance;
    /// Tells the ordinary window that has the keyboard or had it last, as the display server knows it; 0 where there is
    /// none.
    std::function<quint64()> windowBehind = [] { return 0; };
};

/// A dialog of the toolkit in a process of its own: what is made of widgets costs more memory than everything else that
/// a hidden program needs, and is seldom wanted. The process ends with the dialog, or with this. Main thread only.
class DialogProcess final : public QObject
{
    Q_OBJECT

public:
    /// Longer than it takes a slow disk to bring the libraries.
    static constexpr std::chrono::seconds patience{10};

    /// Shows it soon. @param request what `DialogDesk` takes. @param onEnd called once, in a later turn, with the
    /// answer: empty where the user has closed the dialog, or it could not be shown. It may destroy this
    DialogProcess(const DialogSurroundings &surroundings, QJsonObject request,
                  std::function<void(const QJsonObject &answer)> onEnd);
    ~DialogProcess() override;

    /// Brings the dialog to the front, with the keyboard. One that does not answer counts as closed.
    void raise();

private:
    void start(QJsonObject request);
    void awaitShown();
    void send(const QJsonObject &message);
    void read();
    void take(const QJsonObject &message);
    void fail(const QString &reason);
    void end(const QJsonObject &answer);

    const DialogSurroundings &m_surroundings;
    std::function<void(const QJsonObject &)> m_onEnd;
    const Logger m_logger{QStringLiteral("DialogProcess")};
    QProcess *m_process = nullptr;
    std::unique_ptr<LocalConnection> m_connection;
    QByteArray m_unread;
    Cancellable m_waiting;
    bool m_hasEnded = false;
};

}
