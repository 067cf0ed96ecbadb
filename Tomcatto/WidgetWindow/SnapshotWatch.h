#pragma once

#include "Platform/Ports/FileWatch.h"
#include "Widget/WidgetSnapshotFile.h"

namespace tomcatto {

/// Reads the snapshot anew whenever its file or a folder on the way to it changes. Main thread only.
class SnapshotWatch final
{
public:
    /// @param path the snapshot's file; it and its folders may be missing
    SnapshotWatch(QString path, FileWatch &fileWatch, std::function<void()> changed);

    /// What was read last; `nullopt` if the file is missing or not a snapshot.
    [[nodiscard]] const std::optional<WidgetSnapshot> &snapshot() const noexcept { return m_snapshot; }
    /// Reads the file now.
    void read();

private:
    void follow();

    WidgetSnapshotFile m_file;
    FileWatch &m_fileWatch;
    std::function<void()> m_changed;
    std::optional<WidgetSnapshot> m_snapshot;
    QStringList m_followed;
    Cancellable m_watch;
};

}
