#include "Platform/Dialogs/ProcessAlert.h"
#include "Platform/Dialogs/ProcessFilePanels.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "TestScreen.h"

#include <gmock/gmock.h>
#include <QtCore/QTemporaryDir>

using namespace tomcatto;

namespace {

class DialogTests : public testing::Test
{
protected:
    /// Windows that show with this title.
    [[nodiscard]] static QStringList windows(const QString &title)
    {
        return outputOf(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                                    QStringLiteral("--name"), u'^' + title + u'$'})
            .split(u'\n', Qt::SkipEmptyParts);
    }
    /// Whether a dialog has the keyboard.
    [[nodiscard]] static bool shows(const QString &title)
    {
        return QTest::qWaitFor(
            [&] {
                return outputOf(QStringLiteral("xdotool"),
                                {QStringLiteral("getwindowfocus"), QStringLiteral("getwindowname")})
                           .trimmed() == title;
            },
            60'000);
    }
    /// Presses a key until something is done, for the dialog before may still have had the keyboard.
    template<typename Done>
    [[nodiscard]] static bool press(const QString &key, const Done &isDone)
    {
        return QTest::qWaitFor(
            [&] {
                if (!isDone())
                    usePointer(QStringLiteral("key ") + key);
                return isDone();
            },
            60'000);
    }
    /// Types a path into a dialog for files, and takes it: the list of what it could become takes the first Return.
    template<typename Done>
    [[nodiscard]] static bool take(const QString &path, const Done &isDone)
    {
        outputOf(QStringLiteral("xdotool"), {QStringLiteral("type"), path});
        return press(QStringLiteral("Return"), isDone);
    }
    void warn(const QString &text)
    {
        m_alert.showWarning({text, QStringLiteral("more"), QStringLiteral("Act"), QStringLiteral("Not now")},
                            [this](AlertButton button) { m_pressed.push_back(button); });
    }
    [[nodiscard]] auto isClosed(std::size_t count) const
    {
        return [this, count] { return m_pressed.size() == count; };
    }

    QtMainRunLoop m_runLoop;
    DesktopAppearance m_appearance;
    DialogSurroundings m_surroundings{QStringLiteral(DIALOGS_PROGRAM), m_runLoop, m_appearance};
    ProcessAlert m_alert{m_surroundings};
    std::vector<AlertButton> m_pressed;
    const QString m_title = QStringLiteral("Tomcatto");
};

}

TEST_F(DialogTests, WarningsComeOneAfterTheOtherAndOneThatIsLostCountsAsClosed)
{
    for (const char *text : {"<b>one</b>", "two", "three"})
        warn(QLatin1String(text));
    ASSERT_TRUE(shows(m_title));
    EXPECT_EQ(windows(m_title).size(), 1);
    // The second one finds a dialog that has been answered.
    usePointer(QStringLiteral("key --delay 0 Return Return"));
    EXPECT_TRUE(QTest::qWaitFor(isClosed(1), 60'000));
    ASSERT_TRUE(shows(m_title));
    EXPECT_TRUE(press(QStringLiteral("Escape"), isClosed(2)));
    ASSERT_TRUE(shows(m_title));
    outputOf(QStringLiteral("pkill"),
             {QStringLiteral("-KILL"), QStringLiteral("-P"), QString::number(QCoreApplication::applicationPid()),
              QStringLiteral("tomcatto-dialog")});
    EXPECT_TRUE(QTest::qWaitFor(isClosed(3), 60'000));
    m_surroundings.program = QStringLiteral("/nonexistent");
    warn(QStringLiteral("four"));
    EXPECT_TRUE(QTest::qWaitFor(isClosed(4), 60'000));
    EXPECT_THAT(m_pressed, testing::ElementsAre(AlertButton::first, AlertButton::second, AlertButton::second,
                                                AlertButton::second));
}

TEST_F(DialogTests, PanelsTellWhatWasChosenAndOpenOnce)
{
    const QTemporaryDir folder;
    const QString film = folder.filePath(QStringLiteral("a film.mp4"));
    QFile file(film);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ProcessOpenPanel open(m_surroundings);
    QList<QUrl> chosen;
    const auto ask = [&] {
        open.ask({QStringLiteral("Films"), {QStringLiteral("Films (*.mp4)")}},
                 [&](const QList<QUrl> &files) { chosen += files; });
    };
    ask();
    ask();
    ASSERT_TRUE(shows(QStringLiteral("Films")));
    EXPECT_EQ(windows(QStringLiteral("Films")).size(), 1);
    usePointer(QStringLiteral("key Escape"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return windows(QStringLiteral("Films")).isEmpty(); }, 60'000));
    // The one that has left the screen is asked in vain until it has ended.
    const auto asksAnew = [&] {
        ask();
        return !windows(QStringLiteral("Films")).isEmpty();
    };
    EXPECT_TRUE(QTest::qWaitFor(asksAnew, 60'000));
    ASSERT_TRUE(shows(QStringLiteral("Films")));
    EXPECT_TRUE(take(film, [&] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, testing::ElementsAre(QUrl::fromLocalFile(film)));

    ProcessSavePanel save(m_surroundings);
    QString place;
    save.ask({QStringLiteral("Save"), QStringLiteral("history"), QStringLiteral("Table"), QStringLiteral("csv")},
             [&](const QString &path) { place = path; });
    ASSERT_TRUE(shows(QStringLiteral("Save")));
    EXPECT_TRUE(take(folder.filePath(QStringLiteral("mine")), [&] { return !place.isEmpty(); }));
    EXPECT_EQ(place, folder.filePath(QStringLiteral("mine.csv")));
}
