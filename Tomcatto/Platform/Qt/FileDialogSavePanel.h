#pragma once

#include "Platform/Ports/SavePanel.h"

#include <memory>
#include <QtCore/QPointer>

class QFileDialog;

namespace tomcatto {

/// A file dialog that leaves the other windows alone, made anew each time. Main thread only.
class FileDialogSavePanel final : public SavePanel
{
public:
    FileDialogSavePanel();
    ~FileDialogSavePanel() override;

    void ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen) override;

private:
    QPointer<QFileDialog> m_dialog;
    /// Where the next one opens: where a file was saved the last time.
    QString m_folder;
};

}
