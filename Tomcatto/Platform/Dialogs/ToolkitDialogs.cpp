#include "Platform/Dialogs/ToolkitDialogs.h"

#include "Platform/Dialogs/DialogMessages.h"

#include <future>
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <thread>

namespace tomcatto {

namespace {

ToolkitDialog makeWarning(const QJsonObject &request)
{
    auto box = std::make_unique<QMessageBox>();
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(request.value(dialogKey::title).toString());
    // File names and messages of the system come in here: nothing is markup.
    box->setTextFormat(Qt::PlainText);
    box->setText(request.value(dialogKey::text).toString());
    box->setInformativeText(request.value(dialogKey::detail).toString());
    const QJsonArray buttons = request.value(dialogKey::choices).toArray();
    const QPushButton *const first = box->addButton(buttons.at(0).toString(), QMessageBox::AcceptRole);
    box->setEscapeButton(box->addButton(buttons.at(1).toString(), QMessageBox::RejectRole));
    // A break that begins meanwhile is the user's to skip.
    box->setWindowModality(Qt::NonModal);
    const QMessageBox *const shown = box.get();
    return {std::move(box), [shown, first] {
                return QJsonObject{{dialogKey::chosen, shown->clickedButton() == first ? 0 : 1}};
            }};
}

/// Whether a folder is there, for all that its disk tells in time. A disk that hangs keeps a thread.
bool isThere(const QString &folder)
{
    constexpr std::chrono::seconds patience{1};
    std::promise<bool> promise;
    std::future<bool> answer = promise.get_future();
    std::thread([folder, promise = std::move(promise)]() mutable {
        promise.set_value(QDir(folder).exists());
    }).detach();
    return answer.wait_for(patience) == std::future_status::ready && answer.get();
}

QString firstThere(const QJsonArray &folders)
{
    for (const auto &folder : folders) {
        if (const QString path = folder.toString(); !path.isEmpty() && isThere(path))
            return path;
    }
    return QDir::homePath();
}

ToolkitDialog makeFilePanel(const QJsonObject &request, bool isForSaving)
{
    const QString folder = firstThere(request.value(dialogKey::folders).toArray());
    // The toolkit goes back to the folder that it showed last, whose disk may hang by now.
    QSettings(QSettings::UserScope, QStringLiteral("QtProject"))
        .setValue(QStringLiteral("FileDialog/lastVisited"), QUrl::fromLocalFile(folder).toString());
    auto panel = std::make_unique<QFileDialog>(nullptr, request.value(dialogKey::title).toString(), folder);
    panel->setNameFilters(request.value(dialogKey::choices).toVariant().toStringList());
    panel->setAcceptMode(isForSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    panel->setFileMode(isForSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFiles);
    if (isForSaving) {
        panel->setDefaultSuffix(request.value(dialogKey::suffix).toString());
        panel->selectFile(request.value(dialogKey::fileName).toString());
    }
    const QFileDialog *const shown = panel.get();
    return {std::move(panel), [shown, isForSaving]() -> QJsonObject {
                if (shown->result() != QDialog::Accepted)
                    return {};
                QJsonArray paths;
                for (const QUrl &file : shown->selectedUrls())
                    paths.append(isForSaving ? file.toLocalFile() : file.toString(QUrl::FullyEncoded));
                return {{dialogKey::paths, paths}, {dialogKey::folder, shown->directory().path()}};
            }};
}

}

ToolkitDialog makeToolkitDialog(const QJsonObject &request)
{
    const QString kind = request.value(dialogKey::kind).toString();
    if (kind == QLatin1String("warning"))
        return makeWarning(request);
    return makeFilePanel(request, kind == QLatin1String("save"));
}

}
