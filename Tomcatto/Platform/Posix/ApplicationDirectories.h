#pragma once

#include <optional>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tomcatto {

/// Where the application keeps its things, by the platform's standard locations and the environment at the time of the
/// call. Nothing is created but the user-only folder that stands in for a missing runtime folder. A path is empty where
/// the user has no home folder and no other place for it is set. Any thread.
class ApplicationDirectories final
{
public:
    /// The user's application-support folder, which holds the application's own folder "Tomcatto"; nothing if the
    /// user has none.
    [[nodiscard]] std::optional<QString> applicationSupport() const;
    /// The snapshot that widgets read, in a folder that they share with the application.
    [[nodiscard]] QString widgetSnapshotFile() const;
    /// What the widget's window keeps of itself, a file of its own.
    [[nodiscard]] QString widgetSettingsFile() const;
    /// The lock that lets one widget show, and the socket where that one hears of others; short enough for an address.
    [[nodiscard]] QString widgetLockFile() const;
    [[nodiscard]] QString widgetSocket() const;
    /// A folder that ships with the application: beside the program as it is built, else where an installation keeps
    /// shared files; it may be missing.
    [[nodiscard]] QString bundled(const QString &name) const;
    /// Where copies of what was fetched are kept.
    [[nodiscard]] QString urlCache() const;
    /// The JSON file of the user defaults.
    [[nodiscard]] QString userDefaultsFile() const;
    /// The instance lock, beside the user defaults; where these have no place, as below.
    [[nodiscard]] QString instanceLockFile() const;
    /// Where the instance lock goes when the folder of the user defaults cannot be written.
    [[nodiscard]] QString fallbackInstanceLockFile() const;
    /// The socket that commands reach the running application over; short enough for a socket's address.
    [[nodiscard]] QString controlSocket() const;
    /// Where a running application of this user may be reached, the likeliest place first: the one above, then the one
    /// that it has announced, which differs where it was started with another environment. A socket of another user is
    /// left out, and an announced one that others could put theirs in the place of.
    [[nodiscard]] QStringList reachableControlSockets(const QString &announced) const;
};

}
