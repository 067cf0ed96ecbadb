#pragma once

#include "Foundation/Refusal.h"

#include <expected>
#include <QtCore/QFileInfo>
#include <vector>

namespace tomcatto {

/// A clip that is to be published, by what its file's name tells.
struct ClipFile
{
    QFileInfo file;
    /// The name in small letters, digits and hyphens, without a number in front that only orders. Stays the same as
    /// long as the file's name does.
    QString id;
    /// The name as a title.
    QString title;
};

/// The videos of a folder by their endings, in the order of their names. Hidden files, folders and files with other
/// endings are left out; two that would get the same identifier are refused.
[[nodiscard]] std::expected<std::vector<ClipFile>, Refusal> clipsIn(const QString &folder);

/// What a file's name, without its ending, makes of an identifier and of a title.
[[nodiscard]] QString clipId(const QString &name);
[[nodiscard]] QString clipTitle(const QString &name);

}
