#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tomcatto {

/// A video on this computer that a break may play.
struct LocalVideoCandidate
{
    enum class Origin { bundled, user };

    Origin origin = Origin::bundled;
    /// The file name without its extension for a bundled one, the record's id for one of the user's.
    QString identifier;
    QUrl fileUrl;

    bool operator==(const LocalVideoCandidate &) const = default;
};

}
