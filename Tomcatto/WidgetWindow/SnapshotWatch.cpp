#include "WidgetWindow/SnapshotWatch.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

/// The file, or where folders are missing the first of them, which is waited for.
QString firstOnTheWayTo(const QString &file)
{
    QString wanted = file;
    for (QString folder = QFileInfo(wanted).path(); folder != wanted && !QFileInfo(folder).isDir();
         folder = QFileInfo(folder).path())
        wanted = folder;
    return wanted;
}

}

SnapshotWatch::SnapshotWatch(QString path, FileWatch &fileWatch, std::function<void()> changed)
    : m_file(std::move(path))
    , m_fileWatch(fileWatch)
    , m_changed(std::move(changed))
{
    read();
}

void SnapshotWatch::read()
{
    follow();
    const auto found = m_file.isAvailable() ? m_file.read() : std::unexpected(QString());
    m_snapshot = found ? std::optional(*found) : std::nullopt;
}

void SnapshotWatch::follow()
{
    if (!m_file.isAvailable())
        return;
    QStringList wanted{firstOnTheWayTo(m_file.path())};
    if (const QString target = QFileInfo(m_file.path()).symLinkTarget(); !target.isEmpty())
        wanted << firstOnTheWayTo(target);
    if (std::exchange(m_followed, wanted) != wanted)
        m_watch = m_fileWatch.watch(wanted, [this] {
            read();
            m_changed();
        });
}

}
