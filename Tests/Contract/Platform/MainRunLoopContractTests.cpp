#include "Fakes/ManualRunLoop.h"
#include "Platform/Qt/QtMainRunLoop.h"

#include <gmock/gmock.h>
#include <QtTest/QTest>

using namespace std::chrono_literals;
using namespace tomcatto;
using testing::ElementsAre;

namespace {

struct ManualSubject
{
    ManualRunLoop loop;
    void pass(std::chrono::milliseconds span)
    {
        loop.advance(span, [](auto) {});
    }
};

struct QtSubject
{
    QtMainRunLoop loop;
    static void pass(std::chrono::milliseconds span) { QTest::qWait(static_cast<int>(span.count())); }
};

template<typename Subject>
class MainRunLoopContract : public testing::Test
{
protected:
    Subject subject;
    std::vector<int> calls;
};
using Subjects = testing::Types<ManualSubject, QtSubject>;

}

TYPED_TEST_SUITE(MainRunLoopContract, Subjects);

TYPED_TEST(MainRunLoopContract, TimersFireFromOneSpanOnUntilCancelledAlsoByThemselves)
{
    auto token = std::make_shared<int>(200);
    Cancellable repeated;
    repeated = this->subject.loop.every(200ms, [this, &repeated, token] {
        this->calls.push_back(*token);
        if (this->calls.size() > 3)
            repeated.cancel();
    });
    const Cancellable late = this->subject.loop.after(300ms, [this] { this->calls.push_back(300); });
    const Cancellable early = this->subject.loop.after(100ms, [this] { this->calls.push_back(100); });
    {
        const Cancellable dropped = this->subject.loop.after(100ms, [this] { this->calls.push_back(0); });
    }
    this->subject.pass(700ms);
    EXPECT_THAT(this->calls, ElementsAre(100, 200, 300, 200));
    EXPECT_EQ(token.use_count(), 1) << "what a cancelled action holds is let go";
}

TYPED_TEST(MainRunLoopContract, RunsHandedOverActionsLaterInOrderAndWhileTheirContextLives)
{
    QObject context;
    auto other = std::make_unique<QObject>();
    auto ending = std::make_unique<QObject>();
    const auto token = std::make_shared<int>(0);
    this->subject.loop.async(context, [&, this] {
        this->calls.push_back(1);
        this->subject.loop.async(context, [this] { this->calls.push_back(3); });
        other.reset();
    });
    this->subject.loop.async(*ending, [&, this] {
        ending.reset();
        this->calls.push_back(2);
    });
    this->subject.loop.async(*other, [this, token] { this->calls.push_back(*token); });
    EXPECT_TRUE(this->calls.empty());
    this->subject.pass(10ms);
    EXPECT_EQ(token.use_count(), 1) << "what is not called any more is let go";
    EXPECT_THAT(this->calls, ElementsAre(1, 2, 3));
}
