#pragma once

#include "Platform/Ports/LocalConnection.h"
#include "Platform/Qt/DesktopAppearance.h"
#include "Platform/Qt/ToolkitTheme.h"
#include "Platform/Qt/WindowSystem.h"

#include <memory>
#include <QtCore/QJsonObject>

class QDialog;

namespace tomcatto {

/// Shows in the process for it the dialog that the program asks for, and tells what became of it. Main thread only.
class DialogDesk final : public QObject
{
    Q_OBJECT

public:
    /// @param quit called when the dialog or the program has gone. Everything outlives this
    DialogDesk(LocalConnection &connection, const WindowSystem &windowSystem, std::function<void()> quit);
    ~DialogDesk() override;

private:
    void read();
    void obey(const QJsonObject &message);
    void show(const QJsonObject &request);
    void end(const QJsonObject &answer);

    LocalConnection &m_connection;
    const WindowSystem &m_windowSystem;
    std::function<void()> m_quit;
    QByteArray m_unread;
    DesktopAppearance m_appearance;
    ToolkitTheme m_theme{m_appearance};
    std::unique_ptr<QDialog> m_dialog;
};

}
