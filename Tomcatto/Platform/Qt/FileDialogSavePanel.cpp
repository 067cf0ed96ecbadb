#include "Platform/Qt/FileDialogSavePanel.h"

#include <QtCore/QStandardPaths>
#include <QtWidgets/QFileDialog>

namespace tomcatto {

FileDialogSavePanel::FileDialogSavePanel(const DialogPlace &dialogs)
    : m_dialogs(dialogs)
{
}

FileDialogSavePanel::~FileDialogSavePanel()
{
    delete m_dialog;
}

void FileDialogSavePanel::ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen)
{
    if (m_dialog) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    if (!QDir(m_folder).exists() || m_folder.isEmpty())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    m_dialog = new QFileDialog(nullptr, request.title, QDir(m_folder).exists() ? m_folder : QDir::homePath());
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setAttribute(Qt::WA_QuitOnClose, false);
    m_dialog->setAcceptMode(QFileDialog::AcceptSave);
    m_dialog->setNameFilter(QStringLiteral("%1 (*.%2)").arg(request.typeName, request.suffix));
    m_dialog->setDefaultSuffix(request.suffix);
    m_dialog->selectFile(request.fileName);
    QObject::connect(m_dialog, &QDialog::accepted, m_dialog, [this, onChosen = std::move(onChosen)] {
        m_folder = m_dialog->directory().path();
        onChosen(m_dialog->selectedFiles().value(0));
    });
    m_dialogs.show(*m_dialog);
}

}
