#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Why a library was not made.
struct PublishFailure
{
    enum class Kind {
        /// There is nothing to publish, or this installation cannot read videos.
        notApplicable,
        /// The address of the library cannot be used.
        usage,
        /// A file or folder cannot be read, used or written.
        file,
    };

    Kind kind = Kind::file;
    /// A sentence that names what it is about.
    QString message;

    bool operator==(const PublishFailure &) const = default;
};

}
