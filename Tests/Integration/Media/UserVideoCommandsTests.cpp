#include "Integration/Media/VideoLibrary.h"
#include "Media/UserVideoCommands.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Qt/LoadedStillFrame.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace {

using Kind = UserVideoCommandError::Kind;

class UserVideoCommandsTest : public VideoLibrary
{
protected:
    [[nodiscard]] UserVideoCommands::AddResult add(const QString &file)
    {
        std::optional<UserVideoCommands::AddResult> result;
        m_commands.add(file, [&result](const auto &added) { result = added; });
        EXPECT_TRUE(QTest::qWaitFor([&result] { return result.has_value(); }));
        return result.value_or(QUuid());
    }
    using Change = void (UserVideoCommands::*)(const QString &,
                                               const std::function<void(const UserVideoCommands::Result &)> &);
    [[nodiscard]] std::optional<Kind> change(Change operation, const QString &id)
    {
        std::optional<std::optional<Kind>> result;
        (m_commands.*operation)(id, [&result](const auto &changed) {
            result = changed ? std::nullopt : std::optional(changed.error().kind);
        });
        EXPECT_TRUE(QTest::qWaitFor([&result] { return result.has_value(); }));
        return result.value_or(Kind::store);
    }

    UserVideoCommands m_commands{m_repository, m_stillFrame, m_runLoop};
};

}

TEST_F(UserVideoCommandsTest, AddListSelectDeselectRemove)
{
    makeFile("a.mp4");
    const auto id = add(path("a.mp4"));
    ASSERT_TRUE(id);
    const QString text = identifierText(*id);
    ASSERT_EQ(m_commands.list().size(), 1U);
    EXPECT_EQ(m_commands.list().front().path, path("a.mp4"));
    EXPECT_EQ(m_repository.video(*id)->thumbnailData, "picture");
    EXPECT_EQ(m_repository.video(*id)->durationSeconds, 12.5);
    EXPECT_EQ(m_stillFrame.m_looks, 1);

    EXPECT_EQ(change(&UserVideoCommands::select, text.toLower()), std::nullopt);
    EXPECT_TRUE(m_commands.list().front().video.userSelected);
    EXPECT_EQ(change(&UserVideoCommands::deselect, text), std::nullopt);
    EXPECT_FALSE(m_commands.list().front().video.userSelected);
    QFile::remove(path("a.mp4"));
    EXPECT_EQ(m_commands.list().front().path, QString());
    EXPECT_EQ(change(&UserVideoCommands::remove, text + QStringLiteral("0")), Kind::usage);
    EXPECT_EQ(change(&UserVideoCommands::remove, text), std::nullopt);
    EXPECT_TRUE(m_commands.list().empty());
    EXPECT_EQ(change(&UserVideoCommands::remove, text), Kind::videoNotFound);
    EXPECT_EQ(change(&UserVideoCommands::select, QStringLiteral("first")), Kind::usage);
}

TEST_F(UserVideoCommandsTest, WhatIsNoVideoIsRefused)
{
    makeFile("empty.mp4", "");
    makeFile("text.mp4", "hello");
    makeFile("secret.mp4");
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe.mp4")).constData(), 0600), 0);
    m_stillFrame.m_look = std::unexpected(StillFrameFailure::noContainer);
    const std::map<QString, VideoFileError> refusals{
        {path("missing.mp4"), VideoFileError::notFound}, {m_home.path(), VideoFileError::isDirectory},
        {path("pipe.mp4"), VideoFileError::notAFile},    {QStringLiteral("/dev/zero"), VideoFileError::notAFile},
        {path("empty.mp4"), VideoFileError::empty},      {path("text.mp4"), VideoFileError::noContainer},
    };
    for (const auto &[file, error] : refusals) {
        const auto added = add(file);
        ASSERT_FALSE(added) << file.toStdString();
        EXPECT_EQ(added.error().fileError, error) << file.toStdString();
        EXPECT_TRUE(added.error().text.contains(file));
    }
    m_stillFrame.m_look = std::unexpected(StillFrameFailure::noPicture);
    EXPECT_EQ(add(path("text.mp4")).error().fileError, VideoFileError::noPicture);
    EXPECT_EQ(add(QStringLiteral("text.mp4")).error().kind, Kind::usage);

    ASSERT_EQ(chmod(QFile::encodeName(path("secret.mp4")).constData(), 0), 0);
    ASSERT_EQ(chmod(QFile::encodeName(m_home.path()).constData(), 0755), 0);
    const bool isRoot = geteuid() == 0;
    ASSERT_TRUE(!isRoot || seteuid(65'534) == 0);
    const auto unreadable = VideoFileValidator(m_stillFrame).validate(path("secret.mp4"), {});
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    EXPECT_EQ(unreadable, std::unexpected(VideoFileError::unreadable));
    EXPECT_TRUE(m_repository.allVideos().empty());
}

TEST_F(UserVideoCommandsTest, WithoutTheVideoLibrariesAFileThatBeginsLikeAVideoWillDo)
{
    const LoadedStillFrame unavailable(QStringLiteral("/nowhere/plugin.so"));
    const VideoFileValidator validator(unavailable);
    makeFile("text.mp4", "hello");
    makeFile("short.mp4", "h");
    makeFile("clip.mp4", "....ftypisom....");
    EXPECT_EQ(validator.validate(path("text.mp4"), {}), std::unexpected(VideoFileError::noContainer));
    EXPECT_EQ(validator.validate(path("short.mp4"), {}), std::unexpected(VideoFileError::noContainer));
    EXPECT_TRUE(validator.validate(path("clip.mp4"), {}));
}

}
