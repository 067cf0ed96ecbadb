#include "Integration/Media/VideoLibrary.h"
#include "Media/MovedVideoSearch.h"
#include "Media/UserVideoProvider.h"
#include "Platform/Ports/IdentifierSource.h"

#include <gmock/gmock.h>
#include <QtTest/QSignalSpy>

namespace tomcatto {

namespace {

class UserVideoProviderTest : public VideoLibrary
{
protected:
    QUuid addSelected(const char *name)
    {
        const QUuid id = addFile(name);
        m_repository.setSelected(id, true);
        return id;
    }
    [[nodiscard]] UserVideoProvider::Candidates candidates()
    {
        std::optional<UserVideoProvider::Candidates> list;
        m_provider.candidates([&list](const auto &candidates) { list = candidates; });
        EXPECT_TRUE(QTest::qWaitFor([&list] { return list.has_value(); }));
        return list.value_or(UserVideoProvider::Candidates());
    }
    [[nodiscard]] QStringList candidateFiles()
    {
        QStringList files;
        for (const LocalVideoCandidate &candidate : candidates())
            files += QDir(m_home.path()).relativeFilePath(candidate.fileUrl.toLocalFile());
        return files;
    }
    [[nodiscard]] std::optional<VideoPlace> opened(const QUuid &id)
    {
        std::optional<std::optional<VideoPlace>> place;
        m_provider.open(id, [&place](const std::optional<VideoPlace> &found) { place = found; });
        EXPECT_TRUE(QTest::qWaitFor([&place] { return place.has_value(); }));
        return place.value_or(std::nullopt);
    }

    MovedVideoSearch m_search{m_repository, m_sharedBookmarks, m_runLoop};
    VideoFiles m_files{m_repository, m_sharedBookmarks, m_runLoop};
    UserVideoProvider m_provider{m_repository, m_files, m_search};
};

}

TEST_F(UserVideoProviderTest, NeverPlayedVideosComeFirstThenThoseOfLongAgo)
{
    std::map<QString, QUuid> ids;
    for (const char *name : {"played-late", "played-early", "new-late", "new-early", "undated", "unselected"}) {
        m_clock.advance(Seconds{1});
        ids[QString::fromLatin1(name)] = name == std::string("unselected") ? addFile(name) : addSelected(name);
    }
    executeRaw("UPDATE UserVideo SET lastPlayedAt = 200 WHERE displayName = 'played-late';"
               "UPDATE UserVideo SET lastPlayedAt = 100 WHERE displayName = 'played-early';"
               "UPDATE UserVideo SET addedAt = 50 WHERE displayName = 'new-early';"
               "UPDATE UserVideo SET addedAt = NULL WHERE displayName = 'undated'");
    EXPECT_EQ(candidateFiles().join(QLatin1Char(' ')),
              QStringLiteral("undated new-early new-late played-early played-late"));
    EXPECT_EQ(candidates().front().identifier, identifierText(ids[QStringLiteral("undated")]));

    m_provider.markPlayed(ids[QStringLiteral("undated")]);
    EXPECT_EQ(candidateFiles().back(), QStringLiteral("undated"));
    m_repository.deleteVideo(ids[QStringLiteral("new-early")]);
    EXPECT_FALSE(candidateFiles().contains(QStringLiteral("new-early")));
}

TEST_F(UserVideoProviderTest, AMovedFileIsFoundAndItsBookmarkRenewed)
{
    const QUuid id = addSelected("Videos/a.mp4");
    ASSERT_TRUE(QFile::rename(path("Videos/a.mp4"), path("Videos/b.mp4")));
    for (int look = 0; look < 2; ++look) {
        std::optional<VideoFiles::Places> found;
        m_files.find(m_repository.allVideos(), VideoFiles::longPatience, [&found](const auto &all) { found = all; });
        ASSERT_TRUE(QTest::qWaitFor([&found] { return found.has_value(); }));
        EXPECT_TRUE(found->front().isStale) << "found as often as it is looked for, and not renewed";
    }
    EXPECT_EQ(candidateFiles(), QStringList(QStringLiteral("Videos/b.mp4")));
    const auto resolved = m_repository.resolveBookmark(m_repository.video(id).value(), QDeadlineTimer(0));
    EXPECT_EQ(resolved, (ResolvedBookmark{QUrl::fromLocalFile(path("Videos/b.mp4")), false}));
}

TEST_F(UserVideoProviderTest, OnlyFilesThatAreNotThereShareTheTimeToSearch)
{
    for (int number = 0; number < 10; ++number)
        addSelected(qPrintable(QStringLiteral("%1.mp4").arg(number)));
    QFile::remove(path("0.mp4"));
    EXPECT_EQ(candidateFiles().size(), 9);
    EXPECT_GT(m_bookmarks.m_longestSearch, VideoFiles::searchTime.count() / 2);
}

TEST_F(UserVideoProviderTest, AFileMovedTooFarIsLeftOutAndFoundInTheBackground)
{
    addSelected("Videos/a.mp4");
    addSelected("gone.mp4");
    QFile::remove(path("gone.mp4"));
    ASSERT_TRUE(QFile::rename(path("Videos/a.mp4"), path("b.mp4")));
    QSignalSpy finished(&m_search, &MovedVideoSearch::finished);
    m_bookmarks.m_isSearchOff = true;
    const auto lost = m_repository.allVideos();
    EXPECT_EQ(opened(lost.front().id)->state, VideoPlace::State::lost);
    ASSERT_TRUE(finished.wait());
    EXPECT_TRUE(candidateFiles().isEmpty() && finished.wait());
    EXPECT_TRUE(candidateFiles().isEmpty() && !finished.wait(100)) << "each is searched for once a run";
    m_bookmarks.m_isSearchOff = false;
    m_search.search(lost);
    ASSERT_TRUE(finished.wait());
    m_bookmarks.m_isSearchOff = true;
    EXPECT_EQ(candidateFiles(), QStringList(QStringLiteral("b.mp4")));
}

TEST_F(UserVideoProviderTest, AccessLastsWhileItIsNeededAndAFileWithoutAccessIsSkipped)
{
    addSelected("a.mp4");
    const QUuid refused = addSelected("b.mp4");
    const QUrl a = QUrl::fromLocalFile(path("a.mp4"));
    m_bookmarks.m_refused = QUrl::fromLocalFile(path("b.mp4"));
    EXPECT_EQ(candidateFiles(), QStringList(QStringLiteral("a.mp4")));
    EXPECT_EQ(candidateFiles(), QStringList(QStringLiteral("a.mp4")));
    EXPECT_EQ(m_bookmarks.m_accesses[a], 1);
    m_provider.endAccess();
    EXPECT_EQ(m_bookmarks.m_accesses[a], 0);
    const QString skipped =
        QStringLiteral("UserVideoProvider: startAccessingSecurityScopedResource returned false; skipping video");
    EXPECT_EQ(takeErrors(), QStringList({skipped, skipped}));

    EXPECT_FALSE(opened(refused)->access->hasAccess());
    EXPECT_EQ(takeErrors(),
              QStringList(QStringLiteral("UserVideoProvider: startAccessingSecurityScopedResource returned "
                                         "false for user video")));
    EXPECT_FALSE(opened(QUuid::createUuid()));
}

TEST_F(UserVideoProviderTest, ADiskThatDoesNotAnswerIsPassedOverAndHoldsUpNobody)
{
    addSelected("a.mp4");
    for (int number = 0; number < 20; ++number) {
        m_clock.advance(Seconds{1});
        addSelected(qPrintable(QStringLiteral("silent %1.mp4").arg(number)));
    }
    const QStringList awake{QStringLiteral("a.mp4")};
    m_bookmarks.m_isAwake = false;
    m_bookmarks.m_questions = 0;
    for (int list = 0; list < 3; ++list)
        EXPECT_EQ(candidateFiles(), awake) << "what hangs leaves threads for other disks";
    const int hanging = m_bookmarks.m_questions;
    EXPECT_LE(hanging, DiskQuestions::mostThreadsOfDisk) << "not one thread for each video, or each break";
    {
        VideoFiles ending(m_repository, m_sharedBookmarks, m_runLoop);
        ending.find(m_repository.allVideos(), VideoFiles::shortPatience,
                    [](const auto &) { ADD_FAILURE() << "nobody is there to hear it"; });
        EXPECT_TRUE(QTest::qWaitFor([this, hanging] { return m_bookmarks.m_questions > hanging; }));
    }
    // A break that ends while a disk is asked.
    m_provider.candidates([](const auto &) { ADD_FAILURE() << "nothing plays any more"; });
    m_provider.endAccess();
    m_bookmarks.m_isAwake = true;
    m_bookmarks.m_isAwake.notify_all();
    EXPECT_TRUE(QTest::qWaitFor([this] { return candidateFiles().size() == 21; }));
}

}
