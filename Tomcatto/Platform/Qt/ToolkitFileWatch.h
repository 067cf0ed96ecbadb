#pragma once

#include "Platform/Ports/FileWatch.h"

#include <QtCore/QObject>

namespace tomcatto {

/// The toolkit's watch over files, which wakes the process only when something happens. Where the system has no room
/// for another watch, the toolkit looks once a second.
class ToolkitFileWatch final : public QObject, public FileWatch
{
    Q_OBJECT

public:
    [[nodiscard]] Cancellable watch(const QStringList &files, std::function<void()> changed) override;
};

}
