#include "Persistence/Repositories/UserVideoRepository.h"

#include "Foundation/Cancellable.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoQueries.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Ports/WallClock.h"

namespace tomcatto {

namespace {

StoreValue storeValue(const std::optional<Date> &date)
{
    return date ? StoreValue(secondsSince1970(*date)) : StoreValue();
}

StoreValue storeValue(const QByteArray &data)
{
    return data.isEmpty() ? StoreValue() : StoreValue(data);
}

StoreValue storeValue(const QString &text)
{
    return text.isEmpty() ? StoreValue() : StoreValue(text);
}

UserVideo listedVideo(const StoreRow &row)
{
    return {.id = row.identifier(0),
            .displayName = row.text(1),
            .bookmarkData = row.data(2),
            .localCopyPath = row.text(3),
            .durationSeconds = row.real(4),
            .addedAt = row.date(5),
            .lastPlayedAt = row.date(6),
            .playCount = row.integer<qint32>(7),
            .thumbnailData = {},
            .userSelected = row.boolean(8)};
}

UserVideo wholeVideo(const StoreRow &row)
{
    UserVideo video = listedVideo(row);
    video.thumbnailData = row.data(9);
    return video;
}

}

UserVideoRepository::UserVideoRepository(CoreDataStack &stack, const WallClock &clock, IdentifierSource &identifiers,
                                         const Bookmarks &bookmarks, const StillFrame &stillFrame, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_identifiers(identifiers)
    , m_bookmarks(bookmarks)
    , m_thumbnailRenderer(stillFrame)
    , m_logger(QStringLiteral("UserVideoRepository"))
    , m_context(stack.newBackgroundContext())
{
    connect(&stack, &CoreDataStack::othersDidWrite, this, &UserVideoRepository::didChange, Qt::QueuedConnection);
}

UserVideoRepository::~UserVideoRepository()
{
    // No block may be running or waiting that still knows this object.
    m_stop.request_stop();
    m_pictureQueue.drain();
    m_context.performAndWait([](const ManagedObjectContext &) {});
}

QUuid UserVideoRepository::addVideo(const QUrl &fileUrl, Completion completion, std::optional<VideoLook> look)
{
    UserVideo video;
    video.id = m_identifiers.next();
    video.displayName = fileUrl.fileName();
    video.addedAt = m_clock.now();
    const QUuid id = video.id;
    // Looking into the file may take seconds, so it has a thread of its own and holds up no other write.
    m_pictureQueue.async([this, video = std::move(video), fileUrl, look = std::move(look),
                          completion = std::move(completion)]() mutable {
        if (!describe(video, fileUrl, std::move(look)))
            return finish(std::unexpected(UserVideoRepositoryError::bookmarkResolutionFailed), completion);
        insert(video, std::move(completion));
    });
    return id;
}

// On the queue for pictures.
bool UserVideoRepository::describe(UserVideo &video, const QUrl &fileUrl, std::optional<VideoLook> look) const
{
    Cancellable access;
    if (m_bookmarks.startAccess(fileUrl))
        access = Cancellable([this, fileUrl] { m_bookmarks.stopAccess(fileUrl); });
    auto bookmark = m_bookmarks.bookmarkData(fileUrl);
    if (!bookmark)
        return false;
    video.bookmarkData = *std::move(bookmark);
    const std::stop_token stop = m_stop.get_token();
    // What is still waiting when the program ends goes without, rather than not being added.
    if (!look && !stop.stop_requested())
        look = m_thumbnailRenderer.look(fileUrl.toLocalFile(), stop);
    if (look) {
        video.durationSeconds = look->durationSeconds;
        video.thumbnailData = m_thumbnailRenderer.thumbnail(*look);
    }
    return true;
}

void UserVideoRepository::restoreVideo(const UserVideo &video, Completion completion)
{
    insert(video, std::move(completion));
}

void UserVideoRepository::insert(const UserVideo &video, Completion completion)
{
    write({video.id,
           userVideoQueries::insert,
           {identifierText(video.id), video.displayName, video.bookmarkData, storeValue(video.localCopyPath),
            video.durationSeconds, storeValue(video.addedAt), storeValue(video.lastPlayedAt), qint64{video.playCount},
            storeValue(video.thumbnailData), qint64{video.userSelected}},
           QStringLiteral("addVideo save failed: "),
           false,
           std::move(completion)});
}

void UserVideoRepository::deleteVideo(const QUuid &id, Completion completion)
{
    change(id, userVideoQueries::remove, {}, "deleteVideo", std::move(completion));
}

void UserVideoRepository::setSelected(const QUuid &id, bool isSelected, Completion completion)
{
    change(id, userVideoQueries::setSelected, {qint64{isSelected}}, "setSelected", std::move(completion));
}

void UserVideoRepository::markPlayed(const QUuid &id, Completion completion)
{
    change(id, userVideoQueries::markPlayed, {secondsSince1970(m_clock.now())}, "markPlayed", std::move(completion));
}

void UserVideoRepository::updateBookmarkData(const QUuid &id, const QByteArray &data, Completion completion)
{
    change(id, userVideoQueries::updateBookmark, {data}, "updateBookmarkData", std::move(completion));
}

void UserVideoRepository::change(const QUuid &id, const char *sql, std::vector<StoreValue> values,
                                 const char *operation, Completion completion)
{
    values.insert(values.begin(), identifierText(id));
    const QString failureText = QLatin1String(operation) + QStringLiteral(" failed: ");
    write({id, sql, std::move(values), failureText, true, std::move(completion)});
}

void UserVideoRepository::write(Write write)
{
    m_context.perform([this, write = std::move(write)](ManagedObjectContext &context) {
        finish(perform(context, write), write.completion);
    });
}

UserVideoRepository::WriteResult UserVideoRepository::perform(ManagedObjectContext &context, const Write &write) const
{
    bool exists = !write.needsRecord;
    StoreResult<void> done;
    if (write.needsRecord)
        done = context.connection().fetch(userVideoQueries::exists, {identifierText(write.id)},
                                          [&exists](const StoreRow &) { exists = true; });
    if (done && !exists)
        return std::unexpected(UserVideoRepositoryError::videoNotFound);
    if (done)
        done =
            context.save([&write](StoreConnection &connection) { return connection.execute(write.sql, write.values); },
                         HistoryChange::added);
    if (done)
        return UserVideoSave::saved;
    m_logger.error(write.failureText + done.error().description());
    return UserVideoSave::failed;
}

// On the store's queue.
void UserVideoRepository::finish(const WriteResult &result, const Completion &completion)
{
    QMetaObject::invokeMethod(
        this,
        [this, result, completion] {
            if (result == UserVideoSave::saved)
                Q_EMIT didChange();
            if (completion)
                completion(result);
        },
        Qt::QueuedConnection);
}

std::vector<UserVideo> UserVideoRepository::allVideos() const
{
    return fetch(userVideoQueries::all, {}, listedVideo);
}

std::vector<UserVideo> UserVideoRepository::selectedVideos() const
{
    return fetch(userVideoQueries::selected, {}, listedVideo);
}

std::expected<UserVideo, UserVideoRepositoryError> UserVideoRepository::video(const QUuid &id) const
{
    auto found = fetch(userVideoQueries::one, {identifierText(id)}, wholeVideo);
    if (found.empty())
        return std::unexpected(UserVideoRepositoryError::videoNotFound);
    return std::move(found.front());
}

std::vector<UserVideo> UserVideoRepository::fetch(const char *sql, const std::vector<StoreValue> &values,
                                                  const std::function<UserVideo(const StoreRow &)> &read) const
{
    std::vector<UserVideo> found;
    bool hasFailed = false;
    m_context.performAndWait([&](const ManagedObjectContext &context) {
        const auto fetched =
            context.connection().fetch(sql, values, [&](const StoreRow &row) { found.push_back(read(row)); });
        if (fetched)
            return;
        m_logger.error(QStringLiteral("Failed to fetch user videos: ") + fetched.error().description());
        found.clear();
        hasFailed = true;
    });
    if (hasFailed)
        Q_EMIT fetchFailed();
    return found;
}

std::expected<ResolvedBookmark, UserVideoRepositoryError>
UserVideoRepository::resolveBookmark(const UserVideo &video, QDeadlineTimer searchUntil) const
{
    auto resolved = m_bookmarks.resolve(video.bookmarkData, searchUntil);
    if (!resolved)
        return std::unexpected(UserVideoRepositoryError::bookmarkResolutionFailed);
    if (resolved->isStale)
        m_logger.info(QStringLiteral("Resolved a stale security-scoped bookmark; caller should refresh."));
    return *std::move(resolved);
}

}
