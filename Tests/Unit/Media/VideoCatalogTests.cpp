#include "Fakes/CapturedLog.h"
#include "Media/BundledVideoProvider.h"
#include "Media/VideoCatalog.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>

namespace tomcatto {

namespace {

using Origin = LocalVideoCandidate::Origin;

LocalVideoCandidate candidate(const QString &identifier, Origin origin = Origin::user)
{
    return {origin, identifier, QUrl::fromLocalFile(QStringLiteral("/videos/") + identifier)};
}

struct FixedBundle final : BundledVideoProviding
{
    [[nodiscard]] const std::vector<LocalVideoCandidate> &candidates() const override { return list; }
    std::vector<LocalVideoCandidate> list;
};

struct FixedUserVideos final : UserVideoProviding
{
    void candidates(std::function<void(const Candidates &)> done) override { done(list); }
    void markPlayed(const QUuid &id) override { played.push_back(id); }
    std::vector<LocalVideoCandidate> list;
    std::vector<QUuid> played;
};

struct FixedRemote final : RemoteVideoProviding
{
    [[nodiscard]] std::optional<QUrl> nextVideoUrl() override
    {
        ++questions;
        return url;
    }
    std::optional<QUrl> url;
    int questions = 0;
};

class VideoCatalogTest : public testing::Test
{
protected:
    static std::optional<QUrl> next(VideoCatalog &catalog)
    {
        std::optional<QUrl> given;
        catalog.nextVideoUrl([&given](const std::optional<QUrl> &url) { given = url; });
        return given;
    }

    FixedBundle m_bundle;
    FixedUserVideos m_user;
    QRandomGenerator m_random{1};
};

}

TEST_F(VideoCatalogTest, PrefersTheUsersThenRemoteThenBundledVideos)
{
    const QUuid id = QUuid::createUuid();
    const QUrl remoteUrl(QStringLiteral("file:///cache/remote.mp4"));
    const LocalVideoCandidate user = candidate(id.toString(QUuid::WithoutBraces).toUpper());
    const LocalVideoCandidate unnamed = candidate(QStringLiteral("no-identifier"));
    const LocalVideoCandidate bundled = candidate(QStringLiteral("a"), Origin::bundled);
    struct Case
    {
        std::vector<LocalVideoCandidate> user;
        std::optional<FixedRemote> remote;
        std::vector<LocalVideoCandidate> bundled;
        std::optional<QUrl> expected;
        std::vector<QUuid> played;
        int remoteQuestions;
    };
    FixedRemote full;
    full.url = remoteUrl;
    const std::vector<Case> cases{
        {{user}, full, {bundled}, user.fileUrl, {id}, 0},
        {{unnamed}, full, {bundled}, unnamed.fileUrl, {}, 0},
        {{}, full, {bundled}, remoteUrl, {}, 1},
        {{}, FixedRemote{}, {bundled}, bundled.fileUrl, {}, 1},
        {{}, std::nullopt, {bundled}, bundled.fileUrl, {}, 0},
        {{}, FixedRemote{}, {}, std::nullopt, {}, 1},
    };
    for (Case each : cases) {
        m_bundle.list = each.bundled;
        m_user = {};
        m_user.list = each.user;
        VideoCatalog catalog(m_bundle, m_user, each.remote ? &*each.remote : nullptr, m_random);
        EXPECT_EQ(next(catalog), each.expected);
        EXPECT_EQ(m_user.played, each.played);
        EXPECT_EQ(each.remote.value_or(FixedRemote{}).questions, each.remoteQuestions);
    }
}

TEST_F(VideoCatalogTest, PicksEveryUserVideoAboutEquallyOften)
{
    for (int i = 0; i < 3; ++i)
        m_user.list.push_back(candidate(QString::number(i)));
    VideoCatalog catalog(m_bundle, m_user, nullptr, m_random);
    std::map<QUrl, int> counts;
    for (int i = 0; i < 3'000; ++i)
        ++counts[next(catalog).value_or(QUrl())];
    ASSERT_EQ(counts.size(), 3U);
    for (const auto &[url, count] : counts)
        EXPECT_NEAR(count, 1'000, 150) << url.toString().toStdString();
}

TEST_F(VideoCatalogTest, PlaysBundledFilesInTheOrderOfTheirNamesAndWrapsAround)
{
    const QTemporaryDir folder;
    for (const char *name : {"b.mp4", "a.mp4", "C.x.mp4", "d.mov", "e.MP4"})
        ASSERT_TRUE(QFile(folder.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("f.mp4")));
    const BundledVideoProvider bundle(folder.path());
    const auto expected = [&folder](const char *identifier) {
        const QString name = QString::fromLatin1(identifier);
        return LocalVideoCandidate{Origin::bundled, name,
                                   QUrl::fromLocalFile(folder.filePath(name + QStringLiteral(".mp4")))};
    };
    ASSERT_THAT(bundle.candidates(), testing::ElementsAre(expected("C.x"), expected("a"), expected("b")));
    VideoCatalog catalog(bundle, m_user, nullptr, m_random);
    for (const char *identifier : {"C.x", "a", "b", "C.x"})
        EXPECT_EQ(next(catalog), expected(identifier).fileUrl);

    const CapturedLog log;
    EXPECT_TRUE(BundledVideoProvider(QStringLiteral("/nowhere/BundledVideos")).candidates().empty());
    EXPECT_EQ(log.count(LogLevel::error), 1);
}

}
