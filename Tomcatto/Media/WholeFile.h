#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tomcatto {

/// Replaces a file in one step: either the old or the new content is there, whenever the process or the machine stops.
/// A missing folder is made for this user alone. Blocking; any thread. @return why not; empty when it is on disk
[[nodiscard]] QString replaceFile(const QString &path, const QByteArray &content);

/// Makes a folder for this user alone, with those above it; one that is there stays as it is. @return whether it is
/// there
[[nodiscard]] bool makeFolder(const QString &path);

}
