#include "Fakes/MainWindowFixture.h"

#include <gmock/gmock.h>
#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace tomcatto {

namespace {

using testing::ElementsAre;

const QString tom = QStringLiteral("tom");

RemoteVideoEntry entryOf(const QString &id, const QString &title)
{
    RemoteVideoEntry entry;
    entry.id = id;
    entry.title = title;
    entry.video.url = QStringLiteral("https://cats.example/%1.mp4").arg(id);
    entry.video.sizeBytes = 3'640'000;
    entry.video.durationSec = 76;
    entry.thumbnail.url = QStringLiteral("https://cats.example/%1.small.mp4").arg(id);
    entry.sourceHash = QStringLiteral("h");
    return entry;
}

class RemoteLibraryPageTest : public testing::Test
{
protected:
    [[nodiscard]] bool waitUntil(const std::function<bool()> &isSo)
    {
        return QTest::qWaitFor([&] {
            world.library.runLoop.advance(std::chrono::milliseconds(1), [](auto) {});
            return isSo();
        });
    }
    /// Answers the next request, which is for an address that ends so.
    void answer(const char *ending, int status, const QByteArray &body = "film")
    {
        auto &requests = world.library.http.requests;
        ASSERT_TRUE(waitUntil([&requests] { return !requests.empty(); })) << ending;
        EXPECT_TRUE(requests.front().request.url.path().endsWith(QLatin1String(ending)));
        world.library.http.answer(status, body);
    }
    void refresh(int status)
    {
        RemoteManifest manifest;
        manifest.videos = {entryOf(tom, QStringLiteral("Tom\non the sill")), entryOf(QStringLiteral("mia"), {})};
        answer("manifest.json", status, encoded(manifest));
        ASSERT_TRUE(waitUntil([this] { return !page.isChecking(); }));
    }
    /// What the first tile shows.
    std::vector<QByteArray> tile(const std::vector<RemoteVideosModel::Role> &roles)
    {
        std::vector<QByteArray> texts;
        for (const auto role : roles)
            texts.push_back(page.videos()->index(0).data(role).toString().toUtf8());
        return texts;
    }
    std::vector<QByteArray> tile()
    {
        return tile({RemoteVideosModel::status, RemoteVideosModel::caption, RemoteVideosModel::chip,
                     RemoteVideosModel::chipSymbol});
    }
    void waitForStatus(const char *status)
    {
        ASSERT_TRUE(waitUntil([&] { return tile().front() == status; })) << status;
    }

    MainWindowFixture world{SelectedLanguage::en, QStringLiteral("https://cats.example/manifest.json")};
    RemoteLibraryViewModel &page = world.remoteLibrary;
};

}

TEST_F(RemoteLibraryPageTest, ATileGoesThroughItsStates)
{
    world.library.defaults.setValue(QStringLiteral("didSeedDefaultCats"), true);
    page.appear();
    EXPECT_EQ(page.checkedText(), QStringLiteral("Checking"));
    refresh(200);
    EXPECT_EQ(page.checkedText(), QStringLiteral("Checked just now"));
    EXPECT_EQ(tile({RemoteVideosModel::title}).front(), "Tom on the sill");
    EXPECT_THAT(tile(), ElementsAre("missing", "1:16", "3.6 MB", "arrow.down.circle"));

    page.press(tom);
    waitForStatus("downloading");
    ASSERT_TRUE(waitUntil([this] { return !world.library.http.requests.empty(); }));
    world.library.http.requests.front().onProgress(2, 4);
    EXPECT_THAT(tile({RemoteVideosModel::caption, RemoteVideosModel::progressText}),
                ElementsAre("Downloading, 1.8 of 3.6 MB", "50 %"));
    page.press(tom);
    answer("tom.mp4", 404);
    waitForStatus("missing");
    EXPECT_TRUE(world.library.http.requests.empty()) << "once, however often it is pressed";
    EXPECT_THAT(tile(), ElementsAre("missing", "The server did not send this video.", "Try again", "arrow.clockwise"));

    page.press(tom);
    EXPECT_EQ(tile({RemoteVideosModel::hasFailed}).front(), "false");
    answer("tom.mp4", 200);
    waitForStatus("active");
    EXPECT_EQ(tile().at(1), "1:16, plays on breaks");
    const QSignalSpy reset(page.videos(), &QAbstractItemModel::modelReset);
    page.press(tom);
    EXPECT_EQ(tile().at(1), "1:16, resting");
    const QSignalSpy previews(&page, &RemoteLibraryViewModel::previewRequested);
    page.preview(QStringLiteral("mia"));
    page.preview(tom);
    ASSERT_EQ(previews.size(), 1) << "only of what is here";
    page.remove(tom);
    EXPECT_EQ(tile().front(), "missing");
    EXPECT_FALSE(QFile::exists(previews.at(0).at(0).toUrl().toLocalFile()));
    EXPECT_TRUE(reset.isEmpty()) << "a tile that stays keeps the keyboard";
}

TEST_F(RemoteLibraryPageTest, WithoutTheServerTheListStays)
{
    page.appear();
    refresh(200);
    EXPECT_EQ(tile().at(1), "Waiting to download") << "one of the first six";
    world.library.clock.advance(Seconds{3 * 3600 + 5});
    EXPECT_EQ(page.checkedText(), QStringLiteral("Checked 3 hours ago"));
    world.library.clock.advance(Seconds{86'400});
    EXPECT_EQ(page.checkedText(), QStringLiteral("Checked 9 Oct"));
    page.refresh();
    refresh(503);
    EXPECT_EQ(page.problem(), QStringLiteral("The library did not answer. The cats you have still play."));
    EXPECT_THAT(tile(), ElementsAre("missing", "1:16", "3.6 MB", ""));
    page.press(tom);
    EXPECT_TRUE(world.library.http.requests.empty());
    page.refresh();
    refresh(200);
    EXPECT_EQ(page.problem(), QString());
}

TEST_F(RemoteLibraryPageTest, StillsAreFetchedOneTimeAndOnlyWhenTheyAreSeen)
{
    page.appear();
    refresh(200);
    const QSignalSpy ready(&page, &RemoteLibraryViewModel::stillReady);
    QByteArray picture;
    QBuffer buffer(&picture);
    buffer.open(QIODevice::WriteOnly);
    QImage(40, 30, QImage::Format_RGB32).save(&buffer, "PNG");
    const QSignalSpy stills(&page, &RemoteLibraryViewModel::stillCame);
    page.askStill(tom, 1);
    page.askStill(tom, 2);
    ASSERT_EQ(world.library.http.requests.size(), 1U);
    EXPECT_EQ(world.library.http.requests.front().request.largestBody, RemoteStills::largestPreview);
    answer("tom.small.mp4", 200, picture);
    ASSERT_TRUE(waitUntil([&ready] { return !ready.isEmpty(); }));
    EXPECT_TRUE(stills.isEmpty());
    page.askStill(tom, 1);
    ASSERT_EQ(stills.size(), 1);
    EXPECT_EQ(stills[0][0], tom);
    EXPECT_TRUE(stills[0][1].toString().startsWith(QStringLiteral("data:image/png")));
    page.askStill(QStringLiteral("mia"), 1);
    answer("mia.small.mp4", 200, "text");
    page.disappear();
    page.askStill(tom, 1);
    EXPECT_EQ(stills.size(), 1) << "it holds nothing while it is not seen";

    MainWindowFixture without;
    without.remoteLibrary.appear();
    EXPECT_FALSE(without.remoteLibrary.isEnabled());
    EXPECT_TRUE(without.library.http.requests.empty());
}

}
