#pragma once

#include "Platform/Ports/Bookmarks.h"
#include "Platform/Posix/FileIdentity.h"

namespace tomcatto {

/// Bookmarks that keep a file's path and its identity: device, inode and, where the reader knows it,
/// birth time. Access needs no grant here beyond
/// the file's permissions. Any thread.
class FileBookmarks final : public Bookmarks
{
public:
    /// @param homeFolder the user's home folder, which bounds the search for moved files
    explicit FileBookmarks(const QString &homeFolder, FileStatusReader fileStatus = tomcatto::fileStatus);

    [[nodiscard]] std::optional<QByteArray> bookmarkData(const QUrl &fileUrl) const override;
    [[nodiscard]] std::optional<ResolvedBookmark> resolve(const QByteArray &data,
                                                          QDeadlineTimer searchUntil) const override;
    [[nodiscard]] QByteArray disk(const QByteArray &data) const override;
    [[nodiscard]] bool startAccess(const QUrl &fileUrl) const override;
    void stopAccess(const QUrl &fileUrl) const override;

private:
    QByteArray m_homeFolder;
    FileStatusReader m_fileStatus;
};

}
