#include "Fakes/CapturedLog.h"
#include "Fakes/ManualRunLoop.h"
#include "Platform/Freedesktop/SoundThemes.h"
#include "Platform/Posix/CompanionSounds.h"

#include <csignal>
#include <gtest/gtest.h>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;
using namespace std::chrono_literals;

namespace {

/// Players that are scripts, which write down the process that each is and what it was given.
class Players
{
public:
    CompanionSounds with(const QByteArray &commands)
    {
        write(QStringLiteral("player"), "#!/bin/sh\necho $$ $1 >> " + folder.path().toUtf8() + "/played\n" + commands);
        QFile::setPermissions(path(QStringLiteral("player")), QFile::ReadOwner | QFile::ExeOwner);
        return {path(QStringLiteral("player")), [](const QString &name) { return name; }, runLoop};
    }
    void write(const QString &name, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size())
            << file.errorString().toStdString();
    }
    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }
    [[nodiscard]] QByteArrayList played(qsizetype count) const
    {
        QByteArrayList lines;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            QFile file(path(QStringLiteral("played")));
            lines = file.open(QFile::ReadOnly) ? file.readAll().trimmed().split('\n') : QByteArrayList();
            return lines.size() >= count;
        }));
        return lines;
    }

    QTemporaryDir folder;
    ManualRunLoop runLoop;
};

bool isGone(const QByteArray &line)
{
    return QTest::qWaitFor([id = line.split(' ').first().toInt()] { return ::kill(id, 0) != 0; });
}

}

TEST(CompanionSounds, BeginAnewEndByForceAndLeaveNothing)
{
    Players players;
    QByteArrayList played;
    const CapturedLog log;
    {
        CompanionSounds sounds = players.with("exec sleep 1000");
        SystemSound *glass = sounds.named(QStringLiteral("Glass"));
        EXPECT_EQ(sounds.named(QStringLiteral("Glass")), glass);
        EXPECT_EQ(sounds.named(QString()), nullptr);
        glass->play();
        glass->play();
        played = players.played(1);
        EXPECT_TRUE(glass->isPlaying());
        glass->stop();
        EXPECT_FALSE(glass->isPlaying());
        EXPECT_TRUE(isGone(played.value(0)));
        glass->play();
        sounds.named(QStringLiteral("Pop"))->play();
        sounds.named(QStringLiteral("Pop.disabled"))->play();
        played = players.played(3);
        EXPECT_EQ(log.count(LogLevel::error), 0);
    }
    ASSERT_EQ(players.played(3).size(), 3);
    for (const QByteArray &line : played)
        EXPECT_TRUE(isGone(line)) << line.toStdString();
}

TEST(CompanionSounds, OneThatCannotBePlayedIsLoggedOnceAndRests)
{
    const std::pair<const char *, const char *> failures[] = {
        {"echo no device; exit 1", "no device"}, {"kill -9 $$", "has ended"}, {"exec sleep 1000", "its end"}};
    for (const auto &[commands, reason] : failures) {
        Players players;
        CompanionSounds sounds = players.with(commands);
        const CapturedLog log;
        SystemSound *sound = sounds.named(QStringLiteral("Pop"));
        sound->play();
        EXPECT_EQ(players.played(1).size(), 1);
        if (QByteArray(commands).contains("sleep"))
            players.runLoop.advance(20s, [](auto) {});
        EXPECT_TRUE(QTest::qWaitFor([&] { return !sound->isPlaying(); })) << commands;
        sound->play();
        EXPECT_FALSE(sound->isPlaying());
        EXPECT_EQ(log.count(LogLevel::error), 1);
        EXPECT_TRUE(log.lastMessage().contains(QLatin1String(reason))) << log.lastMessage().toStdString();
    }
    ManualRunLoop runLoop;
    CompanionSounds sounds(
        QStringLiteral("/nowhere"), [](const QString &name) { return name; }, runLoop);
    const CapturedLog log;
    sounds.named(QStringLiteral("Pop"))->play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.count(LogLevel::error) == 1; }));
}

TEST(SoundThemes, LooksInTheChosenThemeItsParentsTheCommonOneAndBesideThem)
{
    const Players files;
    const SoundThemes themes({files.path(QStringLiteral("user")), files.path(QStringLiteral("system"))},
                             QStringLiteral("mine"));
    EXPECT_EQ(themes.file(QStringLiteral("Glass")), QString());
    const auto index = [&files](const char *path, const QByteArray &inherits) {
        files.write(QLatin1String(path) + QStringLiteral("/index.theme"),
                    "[Sound Theme]\nName=x\nInherits=" + inherits +
                        "\nDirectories=5.1,stereo/phases\n[5.1]\nOutputProfile=5.1\n"
                        "[stereo/phases]\nOutputProfile=stereo\n");
    };
    index("system/freedesktop", "");
    index("system/parent", "mine");
    index("user/mine", "gone,parent");
    // From the last place that is looked at to the first one.
    for (const char *place :
         {"system/Glass.wav", "user/Glass.ogg", "system/freedesktop/stereo/phases/Glass.oga",
          "system/parent/5.1/Glass.oga", "system/parent/stereo/phases/Glass.wav", "system/mine/stereo/phases/Glass.oga",
          "user/mine/stereo/phases/Glass.wav", "user/mine/stereo/phases/Glass.disabled"}) {
        files.write(QLatin1String(place), "x");
        files.write(QStringLiteral("user/mine/stereo/phases/glass.oga"), "another name");
        EXPECT_EQ(themes.file(QStringLiteral("Glass")), files.path(QLatin1String(place)));
    }
}
