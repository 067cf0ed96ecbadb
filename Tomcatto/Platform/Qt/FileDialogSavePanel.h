#pragma once

#include "Platform/Ports/SavePanel.h"
#include "Platform/Qt/DialogPlace.h"

#include <memory>
#include <QtCore/QPointer>

class QFileDialog;

namespace tomcatto {

/// A file dialog that leaves the other windows alone, made anew each time. Main thread only.
class FileDialogSavePanel final : public SavePanel
{
public:
    /// @param dialogs outlives this
    explicit FileDialogSavePanel(const DialogPlace &dialogs);
    ~FileDialogSavePanel() override;

    void ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen) override;

private:
    const DialogPlace &m_dialogs;
    QPointer<QFileDialog> m_dialog;
    /// Where the next one opens: where a file was saved the last time.
    QString m_folder;
};

}
