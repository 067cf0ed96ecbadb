#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Why something that a person asked for is not done.
struct Refusal
{
    enum class Kind {
        /// The words cannot be meant so.
        usage,
        /// It cannot be now, or not here.
        notApplicable,
        /// A file or the store failed.
        failed,
    };

    Kind kind = Kind::failed;
    /// One line for people, in English.
    QString text;

    bool operator==(const Refusal &) const = default;
};

}
