#pragma once

#include "Platform/Posix/FileIdentity.h"

#include <deque>
#include <QtCore/QDeadlineTimer>
#include <set>

namespace tomcatto {

/// Looks for a file that is no longer at its path: in its folder and what lies below, then in the same way from each
/// folder above, up to the home folder; for a file outside the home folder up to the top of its file system and then
/// from the home folder. It stays on the file's device, follows no links, and leaves hidden folders (and with them the
/// trash) alone unless the file was in one. One search; any thread.
class MovedFileSearch final
{
public:
    /// The most directory entries that one search reads.
    static constexpr int entryLimit = 200'000;

    /// @param homeFolder the native path of the user's home folder, absolute and without a slash at its end
    MovedFileSearch(FileIdentity identity, QByteArray homeFolder, QDeadlineTimer deadline, FileStatusReader fileStatus);

    /// @param lastPath the native, absolute path where the file used to be
    /// @return where it is now; nothing if it was not found within the deadline and the entry limit
    [[nodiscard]] std::optional<QByteArray> find(const QByteArray &lastPath);

private:
    [[nodiscard]] std::deque<QByteArray> startFolders(const QByteArray &lastPath) const;
    [[nodiscard]] std::optional<QByteArray> searchBelow(const QByteArray &folder);
    [[nodiscard]] std::optional<QByteArray> searchFolder(const QByteArray &folder, std::deque<QByteArray> &pending);
    [[nodiscard]] bool enter(const QByteArray &folder);
    [[nodiscard]] bool isExhausted() const { return m_entriesLeft <= 0 || m_deadline.hasExpired(); }

    FileIdentity m_identity;
    QByteArray m_homeFolder;
    QDeadlineTimer m_deadline;
    FileStatusReader m_fileStatus;
    int m_entriesLeft = entryLimit;
    std::set<quint64> m_visitedFolders;
};

}
