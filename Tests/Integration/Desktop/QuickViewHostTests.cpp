#include "Fakes/CapturedLog.h"
#include "Platform/Qt/QtMainRunLoop.h"
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

struct Host
{
    QObject appearance;
    QtMainRunLoop runLoop;
    WindowSystem windowSystem;
    WindowPlaces places{runLoop, windowSystem};
    QuickViewHost views{appearance, appearance, places};
};

}

TEST(QuickViewHostTests, EndsAWindowWithItsViewForItsBindingsReadWhatGoesNext)
{
    Host host;
    auto view = host.views.create(sample());
    ASSERT_NE(view, nullptr);
    const QPointer<QWindow> window = QGuiApplication::topLevelWindows().value(0);
    view->present();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    view.reset();
    EXPECT_TRUE(window.isNull());
}

TEST(QuickViewHostTests, LogsViewsThatCannotBeMade)
{
    CapturedLog log;
    Host host;
    ViewDescription incomplete = sample();
    incomplete.properties.clear();
    for (const ViewDescription &description :
         {sample(QStringLiteral("Missing")), sample(QStringLiteral("NoWindow")), incomplete})
        EXPECT_EQ(host.views.create(description), nullptr);
    EXPECT_GE(log.count(LogLevel::error), 3);
    EXPECT_FALSE(host.views.problem().isEmpty());
}
