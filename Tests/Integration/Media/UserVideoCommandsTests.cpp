#include "Integration/Media/VideoLibrary.h"
#include "Media/UserVideoCommands.h"
#include "Platform/Ports/IdentifierSource.h"
#include "Platform/Qt/LoadedStillFrame.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace {

using Kind = Refusal::Kind;

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
        return result.value_or(Kind::failed);
    }

    UserVideoCommands m_commands{m_repository, m_stillFrame, m_runLoop};
};

}

TEST_F(UserVideoCommandsTest, LooksOnceAndTakesEverySpellingOfAnIdentifierAlone)
{
    makeFile("a.mp4");
    const auto id = add(path("a.mp4"));
    ASSERT_TRUE(id);
    EXPECT_EQ(m_stillFrame.m_looks, 1);
    const QString text = identifierText(*id);
    EXPECT_EQ(change(&UserVideoCommands::select, text.toLower()), std::nullopt);
    EXPECT_TRUE(m_commands.stored().front().userSelected);
    EXPECT_EQ(change(&UserVideoCommands::remove, text + QStringLiteral("0")), Kind::usage);
}

TEST_F(UserVideoCommandsTest, WhatIsNoVideoIsRefused)
{
    makeFile("text.mp4", "hello");
    makeFile("secret.mp4");
    m_stillFrame.m_look = std::unexpected(StillFrameFailure::noPicture);
    const auto added = add(path("text.mp4"));
    ASSERT_FALSE(added);
    EXPECT_TRUE(added.error().text.contains(path("text.mp4")));
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
