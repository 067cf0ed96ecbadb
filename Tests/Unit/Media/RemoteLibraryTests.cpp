#include "Fakes/CapturedLog.h"
#include "Fakes/FakeHttpSession.h"
#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualWallClock.h"
#include "Foundation/TrustedAddress.h"
#include "Media/RemoteLibrary.h"
#include "Media/RemoteTrust.h"

#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;
using testing::ElementsAre;

namespace {

using Error = RemoteManifestClientError;
using Outcome = RemoteVideoProvider::DownloadOutcome;

RemoteVideoEntry entry(const QString &id, const QString &hash = QStringLiteral("h1"))
{
    RemoteVideoEntry made;
    made.id = id;
    made.slug = made.title = id.toUpper();
    made.video = {QStringLiteral("https://cats.example/%1.mp4").arg(id), 4, 9, 1920, 1080, QStringLiteral("h264"), {}};
    made.video.loop.mode = QStringLiteral("cut");
    made.thumbnail = {QStringLiteral("https://cats.example/%1.small.mp4").arg(id), 2, 320, 10, 3};
    made.sourceHash = hash;
    return made;
}

RemoteManifest manifestOf(const QStringList &ids)
{
    RemoteManifest manifest;
    for (const QString &id : ids)
        manifest.videos.push_back(entry(id));
    return manifest;
}

class RemoteLibraryTests : public testing::Test
{
protected:
    void refreshWith(int status, const RemoteManifest &manifest = {})
    {
        bool isDone = false;
        library->provider.refresh(true, [&isDone] { isDone = true; });
        ASSERT_TRUE(QTest::qWaitFor([this] { return !http.requests.empty(); }));
        http.answer(status, encoded(manifest));
        ASSERT_TRUE(QTest::qWaitFor([&isDone] { return isDone; }));
    }
    /// Answers the next request, which is one for that video.
    void deliver(const QString &id, int status = 200)
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !http.requests.empty(); }));
        EXPECT_TRUE(http.requests.front().request.url.fileName().startsWith(id));
        http.answer(status, "film");
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return std::ranges::none_of(library->provider.entries(), [&id](const RemoteVideoEntryView &row) {
                return row.id == id && row.isDownloading;
            });
        }));
        EXPECT_EQ(library->provider.isDownloaded(id), status == 200);
    }
    /// Has them downloaded and played at those seconds since 1970, 0 for never.
    void cache(const std::map<QString, RemoteVideoCacheEntry> &entries)
    {
        ASSERT_TRUE(library->cacheStore.makeDirectory());
        for (const auto &[id, unused] : entries) {
            QFile file(library->cacheStore.filePath(id));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        library->cacheStore.mutate([&](RemoteVideoCacheState &state) { state.entries = entries; });
    }
    QStringList cached()
    {
        QStringList ids;
        for (const auto &[id, unused] : library->cacheStore.state().entries)
            ids << id;
        return ids;
    }
    void restart(const std::optional<QString> &url = QStringLiteral("https://cats.example/manifest.json"))
    {
        library.reset();
        library = std::make_unique<RemoteLibrary>(folder.path(),
                                                  RemoteLibrary::Surroundings{url, http, defaults, clock, random});
    }
    void SetUp() override
    {
        defaults.setValue(QStringLiteral("didSeedDefaultCats"), true);
        restart();
    }

    CapturedLog log;
    QTemporaryDir folder;
    FakeHttpSession http;
    FakeUserDefaults defaults;
    ManualWallClock clock;
    QRandomGenerator random{7};
    std::unique_ptr<RemoteLibrary> library;
};

TEST_F(RemoteLibraryTests, aManifestIsReadAsItIsWrittenAndStrictly)
{
    RemoteManifest manifest = manifestOf({QStringLiteral("tom"), QStringLiteral("mia")});
    manifest.videos.at(1).video.loop = {QStringLiteral("fade"), 0.5, QStringLiteral("ssim"), 0.98,
                                        QStringLiteral("high"), 30};
    const QByteArray text = encoded(manifest);
    EXPECT_EQ(decodedManifest(text), manifest);
    const QByteArray whole = QByteArray(text).replace("\"version\":1", "\"new\":{\"id\":[[1]]},\"version\":1");
    EXPECT_EQ(decodedManifest(whole), manifest);
    const std::vector<std::pair<QByteArray, QByteArray>> wrong{
        {"\"crossfadeSec\":0.5,", ""},
        {"\"crossfadeSec\":0.5", "\"crossfadeSec\":\"0\""},
        {"\"fps\":30", "\"fps\":[30]"},
        {"\"fps\":10", "\"fps\":10.5"},
        {"\"sizeBytes\":4", "\"sizeBytes\":9223372036854775808"},
        {"\"id\":\"tom\"", "\"id\":null"},
        {"\"title\":\"TOM\"", "\"title\":{}"},
        {"\"loop\":{", "\"loop\":7,\"l\":{"},
        {"\"version\":1", "\"version\":[1]"},
        {"\"videos\":[", "\"videos\":[1,"},
        {"\"videos\":[", "\"videos\":{},\"v\":["},
        {"\"generatedAt\":\"\"", "\"generatedAt\":{\"a\":1}"},
        {"{\"version\"", "{\"deep\":" + QByteArray(100'000, '[') + QByteArray(100'000, ']') + ",\"version\""}};
    for (const auto &[from, to] : wrong) {
        ASSERT_TRUE(text.contains(from)) << from.toStdString();
        const auto place = text.indexOf(from);
        EXPECT_FALSE(decodedManifest(QByteArray(text).replace(place, from.size(), to))) << to.left(50).toStdString();
    }
    for (qsizetype size = 0; size < text.trimmed().size(); ++size)
        EXPECT_FALSE(decodedManifest(text.left(size))) << size;
}

TEST_F(RemoteLibraryTests, whatCannotBeTrustedIsLeftOut)
{
    RemoteManifest manifest =
        manifestOf({QStringLiteral("good"), QStringLiteral("good"), QStringLiteral("../up"), QStringLiteral(".hidden"),
                    QString(), QString(129, u'a'), QStringLiteral("a\\b"), QStringLiteral("far"),
                    QStringLiteral("file"), QStringLiteral("big"), QStringLiteral("own"), QStringLiteral("blind")});
    manifest.videos.at(7).video.url = QStringLiteral("http://cats.example/far.mp4");
    manifest.videos.at(8).video.url = QStringLiteral("file:///etc/passwd");
    manifest.videos.at(9).video.sizeBytes = largestRemoteVideo + 1;
    manifest.videos.at(10).video.url = QStringLiteral("http://127.0.0.1:8000/own.mp4");
    manifest.videos.at(11).thumbnail.url = QStringLiteral("http://127.0.0.1.cats.example/x");
    refreshWith(200, manifest);
    QStringList ids;
    for (const RemoteVideoEntryView &view : library->provider.entries())
        ids << view.id;
    EXPECT_EQ(ids, QStringList({QStringLiteral("good"), QStringLiteral("own"), QStringLiteral("blind")}));
    EXPECT_TRUE(library->provider.entries().at(2).thumbnailUrl.isEmpty());
    EXPECT_EQ(log.count(LogLevel::error), 10);
    const QUrl far(QStringLiteral("https://cats.example/a"));
    const QUrl near(QStringLiteral("http://localhost/a"));
    EXPECT_TRUE(isTrustedRedirect(far, far) && isTrustedRedirect(near, near) && isTrustedRedirect(near, far));
    EXPECT_FALSE(isTrustedRedirect(far, near) ||
                 isTrustedRedirect(near, QUrl(QStringLiteral("http://cats.example/a"))));
    restart(QStringLiteral("http://cats.example/manifest.json"));
    library->provider.refresh(true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return library->provider.status().error.has_value(); }));
    EXPECT_EQ(library->provider.status().error, Error::invalidURL);
}

TEST_F(RemoteLibraryTests, aServerThatFailsLeavesTheLastGoodCopy)
{
    const std::vector<std::pair<int, Error>> failures{
        {503, Error::networkFailure}, {404, Error::invalidResponse}, {304, Error::invalidResponse}};
    for (const auto &[status, error] : failures) {
        refreshWith(status);
        EXPECT_EQ(library->provider.status(), (SyncStatus{SyncStatus::Kind::failed, error})) << status;
    }
    refreshWith(200, manifestOf({QStringLiteral("tom")}));
    EXPECT_FALSE(library->provider.offlineReason());
    restart();
    for (const auto &[status, error] : failures) {
        refreshWith(status);
        EXPECT_EQ(library->provider.status(), SyncStatus()) << status;
        EXPECT_EQ(library->provider.offlineReason(), error);
        EXPECT_TRUE(library->provider.contains(QStringLiteral("tom")));
    }
    // What cannot be read is not hidden by the copy.
    library->provider.refresh(true);
    http.answer(200, "{");
    EXPECT_TRUE(QTest::qWaitFor([this] { return library->provider.status().error.has_value(); }));
    EXPECT_EQ(library->provider.status().error, Error::decodingFailed);
    restart(std::nullopt);
    library->provider.refresh(true);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(RemoteLibraryTests, theFirstSixComeOneAfterTheOtherAndOnce)
{
    const QStringList ids{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"),
                          QStringLiteral("e"), QStringLiteral("f"), QStringLiteral("g")};
    defaults.remove(QStringLiteral("didSeedDefaultCats"));
    refreshWith(200, {});
    EXPECT_FALSE(defaults.storedValue(QStringLiteral("didSeedDefaultCats")));
    refreshWith(200, manifestOf(ids));
    // One that the user was quicker to download, and did not want, does not come back.
    library->provider.download(ids.at(4));
    std::swap(http.requests.at(0), http.requests.at(1));
    deliver(ids.at(4));
    EXPECT_TRUE(library->provider.remove(ids.at(4)));
    for (const QString &id : ids.first(6).filter(QRegularExpression(QStringLiteral("[^e]")))) {
        EXPECT_EQ(http.requests.size(), 1U);
        deliver(id, id == QLatin1String("c") ? 500 : 200);
    }
    EXPECT_EQ(cached(), ids.first(6).filter(QRegularExpression(QStringLiteral("[^ce]"))));
    EXPECT_EQ(library->provider.entries().at(2).displayState(), RemoteVideoEntryView::DisplayState::idle);
    EXPECT_EQ(library->provider.entries().at(3).displayState(), RemoteVideoEntryView::DisplayState::selected);
    for (const QString &id : cached())
        library->provider.toggleSelection(id);
    restart();
    refreshWith(200, manifestOf(ids));
    deliver(QStringLiteral("c"));
    EXPECT_TRUE(http.requests.empty());
    EXPECT_EQ(library->provider.nextVideoUrl()->fileName(), QStringLiteral("c.mp4"));
}

TEST_F(RemoteLibraryTests, aDownloadTellsHowItGoesAndLeavesNothingHalf)
{
    refreshWith(200, manifestOf({QStringLiteral("tom")}));
    const QString tom = QStringLiteral("tom");
    std::vector<double> steps;
    std::optional<bool> isKnownOnDisk;
    QObject::connect(&library->provider, &RemoteVideoProvider::entryChanged, &library->provider, [&] {
        if (const auto &row = library->provider.entries().front(); row.isDownloading)
            steps.push_back(row.downloadProgress);
        // An end by force right after must not lose it.
        if (!isKnownOnDisk && !steps.empty() && steps.back() == 1)
            isKnownOnDisk =
                RemoteVideoCacheStore(RemoteLibrary::stateFile(folder.path()), {}).state().entries.contains(tom);
    });
    const std::vector<std::pair<std::function<void()>, Outcome>> ends{
        {[this] { http.fail(HttpFailure::Kind::network); }, Outcome::unreachable},
        {[this] { http.fail(HttpFailure::Kind::response); }, Outcome::refused},
        {[this] { http.fail(HttpFailure::Kind::file); }, Outcome::notStored},
        {[this] { http.answer(404); }, Outcome::refused},
        {[this] { http.answer(200, "film"); }, Outcome::done}};
    for (const auto &[end, wanted] : ends) {
        std::vector<Outcome> outcomes;
        const auto note = [&outcomes](Outcome outcome) { outcomes.push_back(outcome); };
        library->provider.download(tom, note);
        library->provider.download(tom, note);
        ASSERT_EQ(http.requests.size(), 1U);
        for (const qint64 received : {1, 2, 3, 10, 11})
            http.requests.front().onProgress(received, 100);
        end();
        ASSERT_TRUE(QTest::qWaitFor([&outcomes] { return outcomes.size() == 2; }));
        EXPECT_THAT(outcomes, ElementsAre(wanted, wanted));
        EXPECT_EQ(library->provider.isDownloaded(tom), wanted == Outcome::done);
    }
    EXPECT_THAT(std::vector(steps.end() - 4, steps.end()), ElementsAre(0, 0.02, 0.1, 1));
    EXPECT_EQ(isKnownOnDisk, true);
    EXPECT_EQ(library->cacheStore.state().entries.at(tom),
              (RemoteVideoCacheEntry{QStringLiteral("h1"), clock.now(), 4, std::nullopt, true}));
    Outcome missing = Outcome::done;
    library->provider.download(QStringLiteral("nobody"), [&missing](Outcome outcome) { missing = outcome; });
    EXPECT_EQ(missing, Outcome::notInManifest);
}

TEST_F(RemoteLibraryTests, aRefreshBringsTheCacheInLine)
{
    const auto at = [](double seconds) { return dateFromSeconds(seconds); };
    const QString hash = QStringLiteral("h1");
    constexpr qint64 third = 200'000'000;
    cache({{QStringLiteral("changed"), {QStringLiteral("h0"), at(9), 1, {}, true}},
           {QStringLiteral("gone"), {hash, at(9), 1, {}, true}},
           {QStringLiteral("kept"), {hash, at(1), third, {}, true}},
           {QStringLiteral("old"), {hash, at(5), third, {}, false}},
           {QStringLiteral("older"), {hash, at(2), third, at(4), false}},
           {QStringLiteral("oldest"), {hash, at(3), third, {}, false}}});
    const RemoteManifest manifest =
        manifestOf({QStringLiteral("changed"), QStringLiteral("kept"), QStringLiteral("old"), QStringLiteral("older"),
                    QStringLiteral("oldest")});
    refreshWith(200, manifest);
    EXPECT_EQ(cached(), QStringList({QStringLiteral("kept"), QStringLiteral("old")}));
    library->cacheStore.queue().drain();
    EXPECT_FALSE(QFileInfo::exists(library->cacheStore.filePath(QStringLiteral("changed"))));
    EXPECT_FALSE(library->provider.entries().front().isCached);
    library->provider.refresh(false);
    EXPECT_TRUE(log.lastMessage().contains(QStringLiteral("throttled")));
    clock.advance(Seconds{60});
    library->provider.refresh(false);
    EXPECT_EQ(library->provider.status().kind, SyncStatus::Kind::syncing);
}

TEST_F(RemoteLibraryTests, breaksPlayWhatIsSelectedInTurn)
{
    const QString tom = QStringLiteral("tom");
    const QString mia = QStringLiteral("mia");
    EXPECT_FALSE(library->provider.nextVideoUrl());
    cache({{tom, {{}, clock.now(), 1, {}, true}}, {mia, {{}, clock.now(), 1, {}, true}}});
    auto last = library->provider.nextVideoUrl();
    for (int pick = 0; pick < 8; ++pick)
        EXPECT_NE(std::exchange(last, library->provider.nextVideoUrl()), last);
    QFile::remove(library->cacheStore.filePath(mia));
    clock.advance(Seconds{5});
    for (int pick = 0; pick < 3; ++pick)
        EXPECT_EQ(library->provider.nextVideoUrl()->fileName(), QStringLiteral("tom.mp4"));
    restart();
    EXPECT_EQ(library->cacheStore.state().entries.at(tom).lastPlayedAt, clock.now());
    restart(std::nullopt);
    EXPECT_FALSE(library->provider.nextVideoUrl());
}

TEST_F(RemoteLibraryTests, aStartClearsAwayWhatForceLeftBehind)
{
    const QString tom = QStringLiteral("tom");
    cache({{tom, {{}, clock.now(), 1, {}, true}}});
    restart();
    const QDir cacheFolder(RemoteLibrary::cacheFolder(folder.path()));
    for (const char *name : {".mia.part", ".mia.part.aBcDeF", "mia.mp4", "state.json.aBcDeF", "manifest.json.aBcDeF"})
        EXPECT_TRUE(QFile(cacheFolder.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    library->provider.start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !http.requests.empty(); }));
    EXPECT_EQ(cacheFolder.entryList(QDir::Files | QDir::Hidden),
              QStringList({QStringLiteral("state.json"), QStringLiteral("tom.mp4")}));
    library.reset();
    for (const QByteArray text : {"", "{", "[]", "{\"entries\":[]}", "{\"entries\":{\"a\":{}}}",
                                  "{\"entries\":{\"a\":7}}", "{\"entries\":{\"../a\":1}}"}) {
        QFile file(RemoteLibrary::stateFile(folder.path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
        file.close();
        restart();
        EXPECT_TRUE(cached().isEmpty()) << text.toStdString();
    }
}

}
