#pragma once

#include "Platform/Dialogs/DialogProcess.h"
#include "Platform/Ports/OpenPanel.h"
#include "Platform/Ports/SavePanel.h"

#include <QtCore/QStandardPaths>

namespace tomcatto {

/// A dialog for files, made anew each time, which opens in the folder of the last choice. Main thread only.
class ProcessFilePanel final
{
public:
    /// @param surroundings outlives this. @param place where the first one opens
    ProcessFilePanel(const DialogSurroundings &surroundings, QStandardPaths::StandardLocation place);

    /// Asks, or brings the one that is open to the front. @param onChosen called with at least one path
    void ask(QJsonObject request, std::function<void(const QStringList &paths)> onChosen);

private:
    const DialogSurroundings &m_surroundings;
    const QStandardPaths::StandardLocation m_place;
    QString m_folder;
    std::unique_ptr<DialogProcess> m_dialog;
};

/// Asks for a place for a file. Main thread only.
class ProcessSavePanel final : public SavePanel
{
public:
    /// @param surroundings outlives this
    explicit ProcessSavePanel(const DialogSurroundings &surroundings);

    void ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen) override;

private:
    ProcessFilePanel m_panel;
};

/// Asks for files that are there. Main thread only.
class ProcessOpenPanel final : public OpenPanel
{
public:
    /// @param surroundings outlives this
    explicit ProcessOpenPanel(const DialogSurroundings &surroundings);

    void ask(const OpenPanelRequest &request, std::function<void(const QList<QUrl> &files)> onChosen) override;

private:
    ProcessFilePanel m_panel;
};

}
