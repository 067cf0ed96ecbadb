#pragma once

#include "Foundation/Logger.h"
#include "Persistence/ManagedObjectContext.h"
#include "Persistence/Repositories/UserVideo.h"
#include "Persistence/Repositories/UserVideoThumbnailRenderer.h"
#include "Persistence/SerialQueue.h"
#include "Platform/Ports/Bookmarks.h"

#include <QtCore/QObject>

namespace tomcatto {

class Cancellable;
class CoreDataStack;
class IdentifierSource;
class WallClock;

/// The user's own videos, and the only code that reads or writes them. Main thread only. Writes run in the background
/// in the order of the calls; a read waits for the writes before it, so it sees them, but for videos that are still
/// being looked into. Everything handed over is written before the repository is gone, except thumbnails that are not
/// ready by then.
class UserVideoRepository final : public QObject
{
    Q_OBJECT
public:
    /// Called on the main thread, in a later turn of its loop, unless the repository is gone by then. May be empty.
    using Completion = std::function<void(std::expected<UserVideoSave, UserVideoRepositoryError>)>;

    /// All outlive the repository.
    UserVideoRepository(CoreDataStack &stack, const WallClock &clock, IdentifierSource &identifiers,
                        const Bookmarks &bookmarks, const StillFrame &stillFrame, QObject *parent = nullptr);
    ~UserVideoRepository() override;

    /// Adds a video, unselected and named as its file, once its length and thumbnail are made, which may take seconds;
    /// where they cannot be made it goes without. The completion comes when it is written and listed, or with
    /// `bookmarkResolutionFailed` where there is no file at the URL.
    /// @param look what a look into the file gave already
    /// @return the id that the record will have
    QUuid addVideo(const QUrl &fileUrl, Completion completion = {}, std::optional<VideoLook> look = {});
    /// Stores a record as it is, for example one that was just deleted.
    void restoreVideo(const UserVideo &video, Completion completion = {});
    // The following complete with `videoNotFound` where the id has no record.
    void deleteVideo(const QUuid &id, Completion completion = {});
    void setSelected(const QUuid &id, bool isSelected, Completion completion = {});
    /// Stamps the video as played now and counts it.
    void markPlayed(const QUuid &id, Completion completion = {});
    /// Replaces the bookmark, after a stale one was resolved.
    void updateBookmarkData(const QUuid &id, const QByteArray &data, Completion completion = {});

    /// Every video, the earliest added first, without thumbnails. Empty where the store cannot be read, which is
    /// logged.
    [[nodiscard]] std::vector<UserVideo> allVideos() const;
    /// Those that play on breaks, likewise.
    [[nodiscard]] std::vector<UserVideo> selectedVideos() const;
    /// One video with its thumbnail.
    [[nodiscard]] std::expected<UserVideo, UserVideoRepositoryError> video(const QUuid &id) const;

    /// Finds a video's file. A stale bookmark is reported; the caller renews it. Waits for the file's disk. Any thread.
    /// @param searchUntil when to give up looking for a moved file
    [[nodiscard]] std::expected<ResolvedBookmark, UserVideoRepositoryError>
    resolveBookmark(const UserVideo &video, QDeadlineTimer searchUntil) const;

Q_SIGNALS:
    /// A write of this repository was saved, or another process has written. On the main thread.
    void didChange();
    /// The store could not be read, which is logged; the question was answered as if there were nothing.
    void fetchFailed() const;

private:
    struct Write
    {
        QUuid id;
        const char *sql;
        std::vector<StoreValue> values;
        QString failureText;
        /// Whether a missing record is an error.
        bool needsRecord = true;
        Completion completion;
    };
    using WriteResult = std::expected<UserVideoSave, UserVideoRepositoryError>;

    /// Writes to a record that has to be there. @param values those after the id
    void change(const QUuid &id, const char *sql, std::vector<StoreValue> values, const char *operation,
                Completion completion);
    void write(Write write);
    [[nodiscard]] WriteResult perform(ManagedObjectContext &context, const Write &write) const;
    void finish(const WriteResult &result, const Completion &completion);
    /// Makes the bookmark, length and thumbnail. @return whether there is a file
    [[nodiscard]] bool describe(UserVideo &video, const QUrl &fileUrl, std::optional<VideoLook> look) const;
    void insert(const UserVideo &video, Completion completion);
    [[nodiscard]] std::vector<UserVideo> fetch(const char *sql, const std::vector<StoreValue> &values,
                                               const std::function<UserVideo(const StoreRow &)> &read) const;

    const WallClock &m_clock;
    IdentifierSource &m_identifiers;
    const Bookmarks &m_bookmarks;
    UserVideoThumbnailRenderer m_thumbnailRenderer;
    Logger m_logger;
    /// Kept, so that reads follow writes.
    ManagedObjectContext m_context;
    std::stop_source m_stop;
    SerialQueue m_pictureQueue;
};

}
