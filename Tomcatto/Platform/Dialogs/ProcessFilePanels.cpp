#include "Platform/Dialogs/ProcessFilePanels.h"

#include "Platform/Dialogs/DialogMessages.h"

#include <QtCore/QJsonArray>

namespace tomcatto {

ProcessFilePanel::ProcessFilePanel(const DialogSurroundings &surroundings, QStandardPaths::StandardLocation place)
    : m_surroundings(surroundings)
    , m_place(place)
{
}

void ProcessFilePanel::ask(QJsonObject request, std::function<void(const QStringList &paths)> onChosen)
{
    if (m_dialog)
        return m_dialog->raise();
    // Their disks are the dialog's to ask.
    request.insert(dialogKey::folders, QJsonArray{m_folder, QStandardPaths::writableLocation(m_place)});
    m_dialog = std::make_unique<DialogProcess>(
        m_surroundings, request, [this, onChosen = std::move(onChosen)](const QJsonObject &answer) {
            m_dialog.reset();
            const QStringList paths = answer.value(dialogKey::paths).toVariant().toStringList();
            if (paths.isEmpty())
                return;
            m_folder = answer.value(dialogKey::folder).toString();
            onChosen(paths);
        });
}

ProcessSavePanel::ProcessSavePanel(const DialogSurroundings &surroundings)
    : m_panel(surroundings, QStandardPaths::DocumentsLocation)
{
}

void ProcessSavePanel::ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen)
{
    m_panel.ask({{dialogKey::kind, QStringLiteral("save")},
                 {dialogKey::title, request.title},
                 {dialogKey::fileName, request.fileName},
                 {dialogKey::suffix, request.suffix},
                 {dialogKey::choices, QJsonArray{QStringLiteral("%1 (*.%2)").arg(request.typeName, request.suffix)}}},
                [onChosen = std::move(onChosen)](const QStringList &paths) { onChosen(paths.constFirst()); });
}

ProcessOpenPanel::ProcessOpenPanel(const DialogSurroundings &surroundings)
    : m_panel(surroundings, QStandardPaths::MoviesLocation)
{
}

void ProcessOpenPanel::ask(const OpenPanelRequest &request, std::function<void(const QList<QUrl> &files)> onChosen)
{
    m_panel.ask({{dialogKey::kind, QStringLiteral("open")},
                 {dialogKey::title, request.title},
                 {dialogKey::choices, QJsonArray::fromStringList(request.nameFilters)}},
                [onChosen = std::move(onChosen)](const QStringList &paths) {
                    QList<QUrl> files;
                    for (const QString &path : paths)
                        files.append(QUrl(path));
                    onChosen(files);
                });
}

}
