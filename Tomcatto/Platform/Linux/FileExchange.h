#pragma once

#include <QtCore/QString>
#include <system_error>

namespace tomcatto {

/// Puts a file in the place of another one of its folder, whole at every moment, without a word to the disk: some file
/// systems write a file out before it takes another's place by a rename, and the caller waits; two that change places
/// they leave alone. Where there is none to change with, or the file system cannot, it is a rename. After a power cut
/// the file may be empty. Any thread.
/// @return why it cannot be; the earlier file stays then
[[nodiscard]] std::error_code exchangeFile(const QString &part, const QString &file);

}
