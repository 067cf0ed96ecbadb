#include "Fakes/CapturedLog.h"
#include "Platform/Qt/QuickViewHost.h"

#include <gmock/gmock.h>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtTest/QTest>

using namespace tomcatto;

namespace {

ViewDescription sample(const QString &component = QStringLiteral("Sample"))
{
    return {QStringLiteral("TestViews"), component, {{QStringLiteral("shownText"), QStringLiteral("text")}}};
}

}

TEST(QuickViewHostTests, LetsTheEngineGoSomeTimeAfterTheLastViewAndMakesAnotherOne)
{
    CapturedLog log;
    QObject appearance;
    QuickViewHost host(
        appearance, appearance, [] {}, std::chrono::milliseconds(50));
    EXPECT_FALSE(host.hasEngine());
    auto first = host.create(sample());
    auto second = host.create(sample());
    ASSERT_TRUE(first && second);
    first.reset();
    QTest::qWait(150);
    EXPECT_TRUE(host.hasEngine());
    second.reset();
    EXPECT_TRUE(host.hasEngine());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !host.hasEngine(); }));
    second = host.create(sample());
    ASSERT_NE(second, nullptr);
    QTest::qWait(150);
    EXPECT_TRUE(host.hasEngine());
    EXPECT_EQ(log.count(LogLevel::error), 0);
}

TEST(QuickViewHostTests, EndsAWindowWithItsViewForItsBindingsReadWhatGoesNext)
{
    QObject appearance;
    QuickViewHost host(appearance, appearance, [] {});
    auto view = host.create(sample());
    ASSERT_NE(view, nullptr);
    const QPointer<QWindow> window = &view->window();
    window->show();
    view.reset();
    EXPECT_TRUE(window.isNull());
}

TEST(QuickViewHostTests, LogsViewsThatCannotBeMadeAndKeepsNoEngineForThem)
{
    CapturedLog log;
    QObject appearance;
    QuickViewHost host(
        appearance, appearance, [] {}, std::chrono::milliseconds(0));
    ViewDescription incomplete = sample();
    incomplete.properties.clear();
    for (const ViewDescription &description :
         {sample(QStringLiteral("Missing")), sample(QStringLiteral("NoWindow")), incomplete})
        EXPECT_EQ(host.create(description), nullptr);
    EXPECT_GE(log.count(LogLevel::error), 3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !host.hasEngine(); }));
}
