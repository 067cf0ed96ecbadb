#include "Fakes/MainWindowFixture.h"
#include "MainWindow/VideoStill.h"

#include <gtest/gtest.h>
#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace tomcatto {

namespace {

class VideosPageTest : public testing::Test
{
protected:
    VideosPageTest() { page.appear(); }

    QUrl makeFile(const char *name, const QByteArray &content = "video") const
    {
        QFile file(world.library.folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return QUrl::fromLocalFile(file.fileName());
    }
    [[nodiscard]] QString field(int index, const QByteArray &name) const
    {
        const OwnVideosModel &own = *page.own();
        return own.data(own.index(index), own.roleNames().key(name)).toString();
    }
    /// Disks answer and the store writes in time of their own; the page's time passes with it.
    [[nodiscard]] bool waitUntil(const std::function<bool()> &isSo)
    {
        return QTest::qWaitFor([&] {
            world.library.runLoop.advance(std::chrono::milliseconds(10), [](auto) {});
            return isSo();
        });
    }
    void waitForVideos(int count)
    {
        EXPECT_TRUE(waitUntil([this, count] { return page.own()->rowCount() == count; }));
    }
    void waitForStatus(int index, const char *status)
    {
        EXPECT_TRUE(waitUntil([&] { return field(index, "status") == QLatin1String(status); })) << status;
    }

    MainWindowFixture world;
    VideosPageViewModel &page = world.videos;
};

}

TEST_F(VideosPageTest, RefusesWhatIsNoVideoAndSaysWhy)
{
    const QUrl folder = QUrl::fromLocalFile(world.library.folder.path());
    const QString folderName = QFileInfo(folder.path()).fileName();
    for (const auto &[file, text] :
         {std::pair{makeFile("text.mp4", "text"), QStringLiteral("“text.mp4” is not a video.")},
          {makeFile("sound.mp4", "sound"), QStringLiteral("“sound.mp4” is not a video: it has no picture.")},
          {makeFile("empty.mp4", ""), QStringLiteral("“empty.mp4” is empty.")},
          {folder, QStringLiteral("“%1” is a folder, not a video.").arg(folderName)},
          {QUrl(folder.toString() + QLatin1Char('/')),
           QStringLiteral("“%1” is a folder, not a video.").arg(folderName)},
          {QUrl::fromLocalFile(QStringLiteral("/dev/null")),
           QStringLiteral("“null” is a pipe or a device, not a video.")},
          {QUrl(folder.toString() + QStringLiteral("/gone.mp4")), QStringLiteral("“gone.mp4” is not there any more.")},
          {QUrl(QStringLiteral("https://example.org/cat.mp4")), QStringLiteral("“cat.mp4” cannot be read.")}}) {
        page.addFiles({file});
        EXPECT_TRUE(waitUntil([this] { return !page.error().isEmpty(); })) << qPrintable(text);
        EXPECT_EQ(page.error(), text);
    }
    EXPECT_EQ(page.own()->rowCount(), 0);
    page.previewBreak();
    EXPECT_TRUE(page.error().isEmpty()) << "gone with the next action";
}

TEST_F(VideosPageTest, AddsEveryFileOnceAndTicksIt)
{
    const QUrl cats = makeFile("cats.mp4");
    page.addFiles({cats, cats});
    EXPECT_TRUE(waitUntil([this] { return !page.error().isEmpty(); }));
    EXPECT_EQ(page.error(), QStringLiteral("“cats.mp4” is among your videos already."));
    waitForVideos(1);
    const QString link = world.library.folder.filePath(QStringLiteral("link.mp4"));
    ASSERT_TRUE(QFile::link(cats.toLocalFile(), link));
    page.addFiles({QUrl::fromLocalFile(link)});
    EXPECT_TRUE(waitUntil([this] { return page.error() == u"“link.mp4” is among your videos already."; }));
    page.addFiles({makeFile("dogs.mp4")});
    waitForVideos(2);
    EXPECT_EQ(field(0, "title"), QStringLiteral("cats.mp4"));
    EXPECT_EQ(field(0, "caption"), QStringLiteral("Added 9 Oct, resting"));

    // A tile that stays keeps the keyboard, so nothing but the row is touched.
    const QSignalSpy inserted(page.own(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(page.own(), &QAbstractItemModel::rowsRemoved);
    page.toggle(field(0, "videoId"));
    waitForStatus(0, "active");
    EXPECT_EQ(field(0, "caption"), QStringLiteral("Added 9 Oct, plays on breaks"));
    EXPECT_TRUE(inserted.isEmpty() && removed.isEmpty());
    EXPECT_EQ(field(1, "status"), QStringLiteral("resting"));
    page.toggle(field(0, "videoId"));
    waitForStatus(0, "resting");

    // It vanishes while the page is open.
    QFile::remove(cats.toLocalFile());
    page.previewFailed(field(0, "videoId"), VideoFileError::notFound);
    EXPECT_EQ(page.error(), QStringLiteral("“cats.mp4” is not there any more."));
    waitForStatus(0, "missing");
}

TEST_F(VideosPageTest, FindsFilesThatWereMovedFarAway)
{
    const QUrl near = makeFile("cats.mp4");
    page.addFiles({near});
    waitForVideos(1);
    const QString far = world.library.folder.filePath(QStringLiteral("far.mp4"));
    QFile::rename(near.toLocalFile(), far);
    world.library.bookmarks->movedFrom = near.toLocalFile();
    world.library.bookmarks->movedTo = far;
    page.appear();
    waitForStatus(0, "missing");
    waitForStatus(0, "resting");
    EXPECT_EQ(world.library.repository.allVideos().at(0).bookmarkData, far.toUtf8());
}

TEST_F(VideosPageTest, NamesOfFilesStayOnOneLine)
{
    const QByteArray longName = QByteArray("new\nline ") + QByteArray(100, 'a') + ".mp4";
    page.addFiles({makeFile(longName.constData())});
    waitForVideos(1);
    EXPECT_TRUE(field(0, "title").startsWith(QStringLiteral("new line aaa")));
    page.remove(field(0, "videoId"));
    ASSERT_TRUE(waitUntil([this] { return !page.deletedText().isEmpty(); }));
    EXPECT_EQ(page.deletedText(),
              QStringLiteral("“new line %1…%2.mp4” is deleted.").arg(QString(23, u'a'), QString(12, u'a')));
}

TEST_F(VideosPageTest, RemovedVideoComesBackWhole)
{
    page.addFiles({makeFile("cats.mp4")});
    waitForVideos(1);
    world.library.clock.advance(Seconds(1));
    page.addFiles({makeFile("dogs.mp4")});
    const auto length = [this] { return world.library.repository.allVideos().at(0).durationSeconds; };
    waitForVideos(2);
    ASSERT_TRUE(waitUntil([&length] { return length() > 0; }));
    const QString shownId = field(0, "videoId");
    const QUuid id = QUuid::fromString(shownId);
    const UserVideo before = world.library.repository.video(id).value();

    for (int press = 0; press < 2; ++press)
        page.remove(shownId);
    waitForVideos(1);
    ASSERT_TRUE(waitUntil([this] { return !page.deletedText().isEmpty(); }));
    EXPECT_EQ(page.deletedText(), QStringLiteral("“cats.mp4” is deleted."));
    page.undoRemoval();
    waitForVideos(2);
    EXPECT_EQ(field(0, "title"), QStringLiteral("cats.mp4"));
    EXPECT_EQ(world.library.repository.video(id), before);
    EXPECT_EQ(page.error(), QString()) << "pressed twice, it is deleted once";
}

TEST(VideoStill, HasRoundCornersAndTheMiddleOfThePicture)
{
    QImage tall(100, 400, QImage::Format_RGB32);
    tall.fill(Qt::red);
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::ReadWrite) && tall.save(&buffer, "JPG") && buffer.seek(0));
    const QByteArray address = videoStillAddress(buffer, 2).toLatin1();
    const QImage still = QImage::fromData(QByteArray::fromBase64(address.mid(address.indexOf(',') + 1)));
    EXPECT_EQ(still.size(), QSize(410, 230));
    EXPECT_EQ(still.pixelColor(2, 2).alpha(), 0);
    EXPECT_GT(still.pixelColor(205, 115).red(), 240);
}

}
