#include "Integration/Media/VideoLibrary.h"
#include "Platform/Ports/IdentifierSource.h"

namespace tomcatto {

using UserVideoRepositoryTest = VideoLibrary;

TEST_F(UserVideoRepositoryTest, AddingStoresTheWholeVideoAtOnce)
{
    executeRaw("CREATE TRIGGER a BEFORE UPDATE ON UserVideo BEGIN SELECT raise(ABORT, 'half a video'); END;");
    const QUuid id = m_repository.addVideo(makeFile("Videos/cats.mp4"), keep());
    ASSERT_EQ(result(), Write(UserVideoSave::saved));
    const auto video = m_repository.video(id);
    ASSERT_TRUE(video);
    const UserVideo expected{
        .id = id,
        .displayName = QStringLiteral("cats.mp4"),
        .bookmarkData = m_bookmarks.bookmarkData(QUrl::fromLocalFile(path("Videos/cats.mp4"))).value_or(QByteArray()),
        .localCopyPath = {},
        .durationSeconds = 12.5,
        .addedAt = m_clock.now(),
        .lastPlayedAt = {},
        .playCount = 0,
        .thumbnailData = "picture",
        .userSelected = false};
    EXPECT_EQ(*video, expected);
    EXPECT_EQ(m_stillFrame.m_request, (StillFrameRequest{0.5, 480}));
    EXPECT_EQ(m_bookmarks.m_accesses[QUrl::fromLocalFile(path("Videos/cats.mp4"))], 0);
}

TEST_F(UserVideoRepositoryTest, WhatHasNoPictureIsStoredWithout)
{
    m_stillFrame.m_look = std::unexpected(StillFrameFailure::noContainer);
    const QUuid id = addFile("notes.txt");
    const auto video = m_repository.video(id);
    ASSERT_TRUE(video);
    EXPECT_EQ(video->durationSeconds, 0);
    EXPECT_EQ(readRaw("SELECT thumbnailData IS NULL FROM UserVideo"), "1");
    EXPECT_EQ(takeErrors(), QStringList(QStringLiteral("UserVideoThumbnailRenderer: thumbnail extraction failed: "
                                                       "the file is in no known video format")));

    m_repository.addVideo(QUrl::fromLocalFile(path("missing.mp4")), keep());
    EXPECT_EQ(result(), Write(std::unexpected(UserVideoRepositoryError::bookmarkResolutionFailed)));
    EXPECT_EQ(m_repository.allVideos().size(), 1U);
}

TEST_F(UserVideoRepositoryTest, TheEndWaitsForNoPictureButLosesNoVideo)
{
    m_stillFrame.m_takesUntilStopped = true;
    {
        UserVideoRepository ending{m_stack, m_clock, m_identifiers, m_bookmarks, m_stillFrame};
        ending.addVideo(makeFile("a.mp4"));
        ending.addVideo(makeFile("b.mp4"));
    }
    EXPECT_EQ(m_repository.allVideos().size(), 2U);
}

TEST_F(UserVideoRepositoryTest, EveryChangeIsSeenByTheNextRead)
{
    const QUuid first = addFile("a.mp4");
    m_clock.advance(Seconds{10});
    const QUuid second = addFile("b.mp4");
    m_repository.setSelected(second, true);
    ASSERT_EQ(m_repository.selectedVideos().size(), 1U);
    EXPECT_EQ(m_repository.selectedVideos().front().id, second);
    EXPECT_FALSE(m_repository.allVideos().front().userSelected);
    EXPECT_TRUE(m_repository.allVideos().back().userSelected);

    for (const qint32 count : {1, 2}) {
        m_clock.advance(Seconds{1});
        m_repository.markPlayed(second);
        EXPECT_EQ(m_repository.video(second)->lastPlayedAt, m_clock.now());
        EXPECT_EQ(m_repository.video(second)->playCount, count);
    }
    executeRaw("UPDATE UserVideo SET playCount = 2147483647");
    m_repository.markPlayed(first);
    EXPECT_EQ(m_repository.video(first)->playCount, 2'147'483'647);

    m_repository.updateBookmarkData(first, "other");
    EXPECT_EQ(m_repository.video(first)->bookmarkData, "other");

    const UserVideo whole = m_repository.video(second).value();
    m_repository.deleteVideo(second);
    EXPECT_TRUE(m_repository.selectedVideos().empty());
    EXPECT_EQ(m_repository.video(second), std::unexpected(UserVideoRepositoryError::videoNotFound));
    m_repository.restoreVideo(whole);
    EXPECT_EQ(m_repository.video(second), whole);
    EXPECT_TRUE(takeErrors().isEmpty());
}

TEST_F(UserVideoRepositoryTest, AMissingRecordAndAFailedSaveAreReported)
{
    const QUuid id = addFile("a.mp4");
    struct Operation
    {
        std::function<void(const QUuid &)> run;
        const char *message;
    };
    const std::vector<Operation> operations{
        {[this](const QUuid &uuid) { m_repository.deleteVideo(uuid, keep()); }, "deleteVideo failed: "},
        {[this](const QUuid &uuid) { m_repository.setSelected(uuid, true, keep()); }, "setSelected failed: "},
        {[this](const QUuid &uuid) { m_repository.markPlayed(uuid, keep()); }, "markPlayed failed: "},
        {[this](const QUuid &uuid) { m_repository.updateBookmarkData(uuid, "x", keep()); },
         "updateBookmarkData failed: "},
    };
    for (const Operation &operation : operations) {
        operation.run(QUuid::createUuid());
        EXPECT_EQ(result(), Write(std::unexpected(UserVideoRepositoryError::videoNotFound))) << operation.message;
    }
    EXPECT_TRUE(takeErrors().isEmpty());

    executeRaw("CREATE TRIGGER a BEFORE UPDATE ON UserVideo BEGIN SELECT raise(ABORT, 'no'); END;"
               "CREATE TRIGGER b BEFORE DELETE ON UserVideo BEGIN SELECT raise(ABORT, 'no'); END;"
               "CREATE TRIGGER c BEFORE INSERT ON UserVideo BEGIN SELECT raise(ABORT, 'no'); END;");
    const UserVideo before = m_repository.video(id).value();
    for (const Operation &operation : operations) {
        operation.run(id);
        EXPECT_EQ(result(), Write(UserVideoSave::failed));
        const QStringList errors = takeErrors();
        ASSERT_EQ(errors.size(), 1);
        EXPECT_TRUE(
            errors.front().startsWith(QStringLiteral("UserVideoRepository: ") + QString::fromLatin1(operation.message)))
            << errors.front().toStdString();
    }
    m_repository.addVideo(makeFile("b.mp4"), keep());
    EXPECT_EQ(result(), Write(UserVideoSave::failed));
    EXPECT_TRUE(takeErrors().join(QString()).startsWith(QStringLiteral("UserVideoRepository: addVideo save failed: ")));
    EXPECT_EQ(m_repository.video(id), before);
    EXPECT_EQ(m_repository.allVideos().size(), 1U);

    // An empty page must be able to tell why.
    bool hasFailed = false;
    QObject::connect(&m_repository, &UserVideoRepository::fetchFailed, &m_repository,
                     [&hasFailed] { hasFailed = true; });
    executeRaw("DROP TABLE UserVideo");
    EXPECT_TRUE(m_repository.allVideos().empty());
    EXPECT_TRUE(hasFailed);
    EXPECT_EQ(takeErrors().size(), 1);
}

}
