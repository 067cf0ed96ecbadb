#pragma once

#include "Foundation/Cancellable.h"

#include <QtCore/QStringList>

namespace tomcatto {

/// News of files that other programs write; this one is of a system that has none. Main thread only.
class FileWatch
{
public:
    FileWatch() = default;
    FileWatch(const FileWatch &) = delete;
    FileWatch &operator=(const FileWatch &) = delete;
    virtual ~FileWatch() = default;

    /// Calls `changed` in a later turn of the main loop, once or more, after one of the files was written, made,
    /// replaced or removed, by this process or another; now and then also without cause. A file may be missing, its
    /// folder may not. Writes through a memory map are not noticed.
    [[nodiscard]] virtual Cancellable watch(const QStringList & /*files*/,
                                            std::function<void()> /*changed*/) // NOLINT: an adapter keeps it.
    {
        return {};
    }
};

}
