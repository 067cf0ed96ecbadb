#pragma once

#include "Platform/Posix/FileIdentity.h"

namespace tomcatto {

/// The file status with the birth time, where the file system keeps it; asks no server for what is known already. Any
/// thread.
[[nodiscard]] std::optional<FileStatus> fileStatusWithBirth(const QByteArray &nativePath, SymbolicLinks links);

}
