#include "Platform/Qt/ToolkitFileWatch.h"

#include <QtCore/QFileInfo>
#include <QtCore/QFileSystemWatcher>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

/// The toolkit follows a file, not its name: after a replacement it would stay with the old one.
void followNames(QFileSystemWatcher &watcher, const QStringList &files)
{
    if (const QStringList followed = watcher.files(); !followed.isEmpty())
        watcher.removePaths(followed);
    QStringList paths;
    for (const QString &file : files) {
        const QString folder = QFileInfo(file).path();
        if (!watcher.directories().contains(folder) && !paths.contains(folder))
            paths << folder;
        if (QFileInfo::exists(file))
            paths << file;
    }
    if (!paths.isEmpty())
        watcher.addPaths(paths);
}

}

Cancellable ToolkitFileWatch::watch(const QStringList &files, std::function<void()> changed)
{
    auto *const watcher = new QFileSystemWatcher(this);
    const auto notice = [watcher, files, changed = std::move(changed)] {
        followNames(*watcher, files);
        changed();
    };
    connect(watcher, &QFileSystemWatcher::fileChanged, watcher, notice);
    connect(watcher, &QFileSystemWatcher::directoryChanged, watcher, notice);
    followNames(*watcher, files);
    // It may be cancelled from within its own signal.
    return Cancellable([watcher = QPointer(watcher)] {
        if (watcher) {
            watcher->disconnect();
            watcher->deleteLater();
        }
    });
}

}
