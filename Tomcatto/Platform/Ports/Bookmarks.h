#pragma once

#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QUrl>

namespace tomcatto {

/// Where a bookmark's file is now.
struct ResolvedBookmark
{
    QUrl fileUrl;
    /// The bookmark no longer describes the file exactly and should be replaced by a fresh one.
    bool isStale = false;

    bool operator==(const ResolvedBookmark &) const = default;
};

/// Bookmarks: a few bytes that find a file of the user's again after it was moved or renamed, and the access to such
/// files, which some platforms grant for a time only. Any thread.
class Bookmarks
{
public:
    virtual ~Bookmarks() = default;

    /// Makes a bookmark of whatever lies at the URL; nothing if there is nothing or the URL is not a local one.
    [[nodiscard]] virtual std::optional<QByteArray> bookmarkData(const QUrl &fileUrl) const = 0;
    /// Finds a bookmark's file. At its last place any regular file counts, elsewhere only the very same one.
    /// @param searchUntil when to give up looking elsewhere; an expired deadline looks at the last place alone
    [[nodiscard]] virtual std::optional<ResolvedBookmark> resolve(const QByteArray &data,
                                                                  QDeadlineTimer searchUntil) const = 0;
    /// Tells apart the disks that files were on when their bookmarks were made, without a look at them; empty if
    /// unknown.
    [[nodiscard]] virtual QByteArray disk(const QByteArray &data) const = 0;
    /// Starts access to a file. Every call that returns true is balanced by one of `stopAccess`.
    /// @return whether the file can be read
    [[nodiscard]] virtual bool startAccess(const QUrl &fileUrl) const = 0;
    virtual void stopAccess(const QUrl &fileUrl) const = 0;
};

}
