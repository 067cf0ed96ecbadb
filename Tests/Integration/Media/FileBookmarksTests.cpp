#include "Platform/Linux/BirthTime.h"
#include "Platform/Posix/FileBookmarks.h"
#include "Platform/Posix/MovedFileSearch.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace {

class FileBookmarksTest : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.path() + QLatin1Char('/') + name; }
    [[nodiscard]] QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }
    void make(const QString &name, const QByteArray &content = "video") const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void move(const QString &from, const QString &to) const
    {
        QDir().mkpath(QFileInfo(path(to)).path());
        ASSERT_TRUE(QFile::rename(path(from), path(to)));
    }
    /// Runs a shell's command in the folder; F is the file. Not by QProcess, see `StillFrameTest`.
    void run(const char *command) const
    {
        const QString whole = QStringLiteral("set -e; cd '%1'; F='%2'; %3");
        const auto bytes = QFile::encodeName(whole.arg(m_folder.path(), m_file, QString::fromUtf8(command)));
        ASSERT_EQ(std::system(bytes.constData()), 0);
    }
    [[nodiscard]] static QDeadlineTimer soon() { return QDeadlineTimer(10'000); }

    QTemporaryDir m_folder;
    FileBookmarks m_bookmarks{m_folder.path() + QStringLiteral("/home"), fileStatusWithBirth};
    const QString m_file = QStringLiteral("home/Videos/old/clip ä.mp4");
};

}

TEST_F(FileBookmarksTest, FindTheFileWhereverItWent)
{
    struct Case
    {
        const char *command;
        /// Empty where the file must not be found.
        QString expected;
        bool isStale = true;
    };
    const std::vector<Case> cases{
        {":", m_file, false},
        {"echo other > \"$F\"", m_file, false},
        {"echo other > new; mv new \"$F\"", m_file},
        {"mv \"$F\" 'home/Videos/old/new name.mkv'", QStringLiteral("home/Videos/old/new name.mkv")},
        {"mkdir -p home/Videos/old/a/b; mv \"$F\" home/Videos/old/a/b/c", QStringLiteral("home/Videos/old/a/b/c")},
        {"mkdir home/Music; mv \"$F\" home/Music/c.mp4", QStringLiteral("home/Music/c.mp4")},
        {"mv home/Videos home/Films", QStringLiteral("home/Films/old/clip ä.mp4")},
        {"mv \"$F\" home/x; echo other > 'home/Videos/clip ä.mp4'", QStringLiteral("home/x")},
        {"rm \"$F\"", {}},
        {"rm \"$F\"; echo other > home/Videos/old/z", {}},
        {"mkdir -p home/.local/Trash; mv \"$F\" home/.local/Trash/", {}},
        {"mv \"$F\" outside", {}},
        {"rm \"$F\"; mkdir \"$F\"", {}},
        {"rm \"$F\"; mkfifo \"$F\"", {}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.command);
        QDir(path(QStringLiteral("home"))).removeRecursively();
        make(m_file);
        const QByteArray data = m_bookmarks.bookmarkData(url(m_file)).value_or(QByteArray());
        run(each.command);
        const auto resolved = m_bookmarks.resolve(data, soon());
        ASSERT_EQ(resolved.has_value(), !each.expected.isEmpty());
        if (!resolved)
            continue;
        EXPECT_EQ(*resolved, (ResolvedBookmark{url(each.expected), each.isStale}));
        const auto renewed = m_bookmarks.bookmarkData(resolved->fileUrl).value_or(QByteArray());
        EXPECT_EQ(m_bookmarks.resolve(renewed, soon()), (ResolvedBookmark{url(each.expected), false}));
    }
}

TEST_F(FileBookmarksTest, AFileOutsideTheHomeFolderIsFoundAboveItsFolderAndAtHome)
{
    for (const char *target : {"mount/b/clip.mp4", "home/Videos/clip.mp4"}) {
        SCOPED_TRACE(target);
        make(QStringLiteral("mount/a/clip.mp4"));
        const auto data = m_bookmarks.bookmarkData(url(QStringLiteral("mount/a/clip.mp4")));
        move(QStringLiteral("mount/a/clip.mp4"), QString::fromLatin1(target));
        const auto resolved = m_bookmarks.resolve(data.value_or(QByteArray()), soon());
        EXPECT_EQ(resolved, (ResolvedBookmark{url(QString::fromLatin1(target)), true}));
        QFile::remove(path(QString::fromLatin1(target)));
    }
}

TEST_F(FileBookmarksTest, TheSearchEndsAtItsDeadlineAndTellsFilesOfOneInodeApart)
{
    make(m_file);
    const auto data = m_bookmarks.bookmarkData(url(m_file));
    move(m_file, QStringLiteral("home/clip.mp4"));
    EXPECT_FALSE(m_bookmarks.resolve(data.value_or(QByteArray()), QDeadlineTimer(0)));

    const auto status =
        fileStatusWithBirth(QFile::encodeName(path(QStringLiteral("home/clip.mp4"))), SymbolicLinks::keep);
    FileIdentity identity = status.value_or(FileStatus{}).identity;
    const QByteArray home = QFile::encodeName(path(QStringLiteral("home")));
    EXPECT_TRUE(MovedFileSearch(identity, home, soon(), fileStatusWithBirth).find(home + "/x.mp4"));
    identity.birthNanoseconds = identity.birthNanoseconds.value_or(0) + 1;
    EXPECT_FALSE(MovedFileSearch(identity, home, soon(), fileStatusWithBirth).find(home + "/x.mp4"));
}

TEST_F(FileBookmarksTest, ForeignBytesAreNoBookmark)
{
    make(m_file);
    const QByteArray data = m_bookmarks.bookmarkData(url(m_file)).value_or(QByteArray());
    ASSERT_FALSE(data.isEmpty());
    for (qsizetype length = 0; length < data.size(); ++length)
        EXPECT_FALSE(m_bookmarks.resolve(data.first(length), soon())) << length;
    EXPECT_FALSE(m_bookmarks.resolve(data + 'x', soon()));
    EXPECT_FALSE(m_bookmarks.resolve(QByteArray("bplist00book"), soon()));
    EXPECT_FALSE(m_bookmarks.bookmarkData(url(QStringLiteral("missing.mp4"))));
    EXPECT_FALSE(m_bookmarks.bookmarkData(QUrl(QStringLiteral("https://localhost/clip.mp4"))));
}

TEST_F(FileBookmarksTest, AccessNeedsAFileThatCanBeRead)
{
    make(m_file);
    ASSERT_EQ(mkfifo(QFile::encodeName(path(QStringLiteral("pipe"))).constData(), 0600), 0);
    EXPECT_TRUE(m_bookmarks.startAccess(url(m_file)));
    EXPECT_FALSE(m_bookmarks.startAccess(url(QStringLiteral("home"))));
    EXPECT_FALSE(m_bookmarks.startAccess(url(QStringLiteral("pipe"))));
    ASSERT_TRUE(QFile::setPermissions(path(m_file), QFile::WriteOwner));
    ASSERT_EQ(chmod(QFile::encodeName(m_folder.path()).constData(), 0755), 0);
    const bool isRoot = geteuid() == 0;
    ASSERT_TRUE(!isRoot || seteuid(65'534) == 0);
    EXPECT_FALSE(m_bookmarks.startAccess(url(m_file)));
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
}

}
