#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

namespace tomcatto {

/// What stays the same of a file when it is moved or renamed within its file system.
struct FileIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    /// When the file was made, in nanoseconds since 1970; it tells a file from a later one that got the same inode.
    /// Missing if the file system does not keep it.
    std::optional<qint64> birthNanoseconds;

    bool operator==(const FileIdentity &) const = default;
};

/// What lies at a path.
struct FileStatus
{
    FileIdentity identity;
    bool isRegularFile = false;
    bool isDirectory = false;
};

/// Whether a symbolic link stands for what it points to.
enum class SymbolicLinks { follow, keep };

/// Looks at a path, never opens it; nothing if there is none. Any thread.
using FileStatusReader = std::optional<FileStatus> (*)(const QByteArray &nativePath, SymbolicLinks links);

/// The reader of every system, which knows nothing of birth times.
[[nodiscard]] std::optional<FileStatus> fileStatus(const QByteArray &nativePath, SymbolicLinks links);

}
