#pragma once

#include "Platform/Ports/WidgetCenter.h"
#include "Widget/WidgetSnapshot.h"

#include <expected>

namespace tomcatto {

/// The file that the application writes and widgets read. Readers never see half of it. Any thread, one writer.
class WidgetSnapshotFile final
{
public:
    /// @param path the file, in a folder that is made when it is missing; empty where the container has no place.
    explicit WidgetSnapshotFile(QString path);

    [[nodiscard]] const QString &path() const noexcept { return m_path; }
    [[nodiscard]] bool isAvailable() const noexcept { return !m_path.isEmpty(); }
    /// Replaces the file. It is not forced to the disk: after a power cut its figures are old in any case.
    /// @return what failed; the earlier file stays then
    [[nodiscard]] std::expected<void, QString> write(const WidgetSnapshot &snapshot, WidgetCenter &widgetCenter) const;
    /// @return the snapshot, or what is wrong with the file
    [[nodiscard]] std::expected<WidgetSnapshot, QString> read() const;

private:
    QString m_path;
};

}
