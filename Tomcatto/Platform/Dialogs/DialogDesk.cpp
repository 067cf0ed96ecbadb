#include "Platform/Dialogs/DialogDesk.h"

#include "Platform/Dialogs/DialogMessages.h"
#include "Platform/Dialogs/ToolkitDialogs.h"

#include <QtGui/QWindow>
#include <QtWidgets/QDialog>

namespace tomcatto {

namespace {

/// In front of a window of the program's, where the display server lets one client name a window of another.
void putInFront(QWidget &dialog, quint64 windowBehind)
{
    dialog.winId();
    if (windowBehind == 0 || QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    if (QWindow *const window = QWindow::fromWinId(windowBehind)) {
        QObject::connect(&dialog, &QObject::destroyed, window, &QObject::deleteLater);
        dialog.windowHandle()->setTransientParent(window);
    }
}

}

DialogDesk::DialogDesk(LocalConnection &connection, const WindowSystem &windowSystem, std::function<void()> quit)
    : m_connection(connection)
    , m_windowSystem(windowSystem)
    , m_quit(std::move(quit))
{
    connection.onChange([this] { read(); });
}

DialogDesk::~DialogDesk() = default;

void DialogDesk::read()
{
    constexpr qsizetype mostBytes = 1 << 16;
    const LocalInput input = m_connection.read(mostBytes);
    m_unread += input.bytes;
    while (const auto message = takeLine(m_unread))
        obey(*message);
    if (input.peer != LocalPeer::open)
        m_quit();
}

void DialogDesk::obey(const QJsonObject &message)
{
    if (message.contains(dialogKey::isDark))
        m_appearance.setDarkOverride(message.value(dialogKey::isDark).toBool());
    if (message.contains(dialogKey::kind) && !m_dialog)
        show(message);
    if (message.contains(dialogKey::raise) && m_dialog) {
        m_dialog->raise();
        m_windowSystem.activate(*m_dialog->windowHandle());
        m_connection.write(lineOf({{dialogKey::isShown, true}}));
    }
}

void DialogDesk::show(const QJsonObject &request)
{
    ToolkitDialog made = makeToolkitDialog(request);
    m_dialog = std::move(made.dialog);
    // Once: a second press that was on its way finishes it again.
    connect(
        m_dialog.get(), &QDialog::finished, this, [this, answerOf = std::move(made.answer)] { end(answerOf()); },
        Qt::SingleShotConnection);
    putInFront(*m_dialog, request.value(dialogKey::windowBehind).toString().toULongLong());
    m_dialog->show();
    m_dialog->raise();
    m_windowSystem.activate(*m_dialog->windowHandle());
    m_connection.write(lineOf({{dialogKey::isShown, true}}));
}

void DialogDesk::end(const QJsonObject &answer)
{
    // The program ends this process as soon as it has read the answer; before, the dialog writes down what it
    // remembers.
    connect(m_dialog.get(), &QObject::destroyed, this, [this, answer] { m_connection.write(lineOf(answer)); });
    m_dialog.release()->deleteLater();
}

}
