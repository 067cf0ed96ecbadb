#include "CommandLine/Invocation.h"

#include <gtest/gtest.h>

using namespace tomcatto;

namespace {

std::expected<Invocation, QString> parsed(const char *line)
{
    return parseCommandLine(QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

}

TEST(Invocation, EveryWrongWordIsAUsageErrorThatNamesIt)
{
    struct Case
    {
        const char *line;
        const char *named;
    };
    const Case cases[] = {
        {"nonsense", "nonsense"},
        {"start now", "now"},
        {"-- start", "--"},
        {"-nonsense 5", "-nonsense"},
        {"-workDurationSeconds", "workDurationSeconds"},
        {"-workDurationSeconds 0", "1 to 10800"},
        {"-workDurationSeconds -5", "1 to 10800"},
        {"-autoStartBreaks yes", "true or false"},
        {"-menuBarStyle ring", "iconOnly, countdown"},
        {"-workDurationSeconds 5 status", "status"},
        {"status --format xml", "xml"},
        {"status --json --format text", "--json"},
        {"status --ticks", "--ticks requires --follow"},
        {"stats --range year", "year"},
        {"history", ""},
        {"history add 2026-11-21T09:30", "minutes"},
        {"history add 2026-11-21T09:30 0", "1 to 180"},
        {"history add 2026-11-21T09:30 181", "1 to 180"},
        {"history add 2026-02-29T09:30 25", "2026-02-29T09:30"},
        {"history add 2026-11-21T9:30 25", "2026-11-21T9:30"},
        {"history add 2026-11-21T09:30Z 25", "2026-11-21T09:30Z"},
        {"settings", ""},
        {"settings get nothing", "nothing"},
        {"settings set cyclesBeforeLongBreak 13", "1 to 12"},
        {"settings set dailyGoalPomodoros", ""},
        {"preset fast", "fast"},
        {"manners nothing", "nothing"},
        {"manners waitsDuringCalls yes", "true or false"},
        {"manners awayAfterMinutes 4", "one of: 0, 3, 5, 10"},
        {"manners --json waitsDuringCalls", "--json"},
        {"--nonsense", "--nonsense"},
    };
    for (const Case &item : cases) {
        const auto invocation = parsed(item.line);
        ASSERT_FALSE(invocation) << item.line;
        EXPECT_NE(invocation.error().indexOf(QString::fromUtf8(item.named)), -1)
            << item.line << ": " << invocation.error().toStdString();
    }
}

TEST(Invocation, ReadsTheApplicationsWords)
{
    const auto invocation =
        parsed("--terminal -workDurationSeconds 5 -autoStartBreaks false -themePreference dark --ui-test");
    ASSERT_TRUE(invocation) << invocation.error().toStdString();
    EXPECT_EQ(invocation->action, Invocation::Action::application);
    EXPECT_TRUE(invocation->isTerminal && invocation->isUiTest && !invocation->isBackground);
    const std::map<QString, DefaultsValue> expected{{QStringLiteral("workDurationSeconds"), qint64{5}},
                                                    {QStringLiteral("autoStartBreaks"), false},
                                                    {QStringLiteral("themePreference"), QStringLiteral("dark")}};
    EXPECT_EQ(invocation->argumentDomain, expected);
}

TEST(Invocation, ReadsWhatStandsAnywhereInACommand)
{
    EXPECT_TRUE(parsed("status --follow --ticks")->wantsTicks);
    EXPECT_FALSE(parsed("status --format waybar")->wantsTicks);
    for (const char *line : {"--verbose", "--verbose start", "videos list --verbose", "settings --verbose list"})
        EXPECT_TRUE(parsed(line)->isVerbose) << line;
    const auto help = parsed("settings --help");
    EXPECT_EQ(help->action, Invocation::Action::print);
    EXPECT_NE(help->text.indexOf(QStringLiteral("tomcatto settings")), -1) << help->text.toStdString();
}
